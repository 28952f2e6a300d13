// SPDX-License-Identifier: GPL-3.0-or-later
// Questions for the room on a disk, kept until a test answers them.
#pragma once

#include <QStringList>
#include <utility>

#include "image/ports/space_query.h"

namespace vaktor::faux {

class SondeEspaceFausse : public SondeEspace {
 public:
  QStringList Demandes;  ///< folders, in order
  int Oublis = 0;

  void DemandeEspace(const QString& dossier, Recoit recoit) override {
    Demandes += dossier;
    if (EnAttente_ && dossier == Dossier_) return;
    Dossier_ = dossier;
    EnAttente_ = std::move(recoit);
  }
  void Oublie() override {
    ++Oublis;
    EnAttente_ = {};
  }
  bool Attend() const { return static_cast<bool>(EnAttente_); }
  /// The disk answers; nothing happens where nobody waits.
  void Repond(std::optional<qint64> libres) {
    if (const Recoit recoit = std::exchange(EnAttente_, {})) recoit(libres);
  }

 private:
  QString Dossier_;
  Recoit EnAttente_;
};

}  // namespace vaktor::faux
