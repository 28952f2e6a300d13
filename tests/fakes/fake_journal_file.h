// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "journal/journal_entry.h"
#include "journal/ports/journal_file.h"

namespace vaktor::faux {

/// Keeps the lines.
class FichierJournalFaux : public FichierJournal {
 public:
  void Ajoute(const QByteArray& ligne) noexcept override { Lignes.append(ligne); }
  int Erreur() const noexcept override { return Panne; }

  QList<EntreeJournal> Entrees() const {
    QList<EntreeJournal> entrees;
    for (const QByteArray& ligne : Lignes)
      if (const auto entree = LitLigne(ligne)) entrees.append(*entree);
    return entrees;
  }

  QList<QByteArray> Lignes;
  int Panne = 0;
};

}  // namespace vaktor::faux
