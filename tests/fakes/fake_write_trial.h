// SPDX-License-Identifier: GPL-3.0-or-later
// Trials of writing, kept until a test answers them.
#pragma once

#include <QMap>
#include <QStringList>

#include "image/ports/write_trial.h"

namespace vaktor::faux {

class EssaiEcritureFaux : public EssaiEcriture {
 public:
  QStringList Essayes;  ///< folders, in order
  int Oublis = 0;

  void Essaie(const QString& dossier, Recoit recoit) override {
    Essayes += dossier;
    if (!EnAttente_.contains(dossier)) EnAttente_.insert(dossier, recoit);
  }
  void Oublie() override {
    ++Oublis;
    EnAttente_.clear();
  }
  /// The disk answers; nothing happens where nobody waits.
  void Repond(const QString& dossier, bool reussi) {
    if (const Recoit recoit = EnAttente_.take(dossier)) recoit(reussi);
  }

 private:
  QMap<QString, Recoit> EnAttente_;
};

}  // namespace vaktor::faux
