// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "companions/contract/intrusion_slate.h"
#include "journal/journal_entry.h"
#include "journal/ports/journal_file.h"

namespace vaktor::faux {

/// Keeps the lines.
class FichierJournalFaux : public FichierJournal {
 public:
  void Ajoute(const QByteArray& ligne) noexcept override { Lignes.append(ligne); }
  void MontreArdoise(const QByteArray& ardoise) noexcept override { Ardoises.append(ardoise); }
  int Erreur() const noexcept override { return Panne; }

  QList<EntreeJournal> Entrees() const {
    QList<EntreeJournal> entrees;
    for (const QByteArray& ligne : Lignes)
      if (const auto entree = LitLigne(ligne)) entrees.append(*entree);
    return entrees;
  }

  /// The last slate; an empty one where there is none.
  ArdoiseIntrusion Ardoise() const {
    return Ardoises.isEmpty() ? ArdoiseIntrusion{} : LitArdoise(Ardoises.constLast()).value_or(ArdoiseIntrusion{});
  }

  QList<QByteArray> Lignes;
  QList<QByteArray> Ardoises;
  int Panne = 0;
};

}  // namespace vaktor::faux
