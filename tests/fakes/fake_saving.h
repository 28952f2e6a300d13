// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "base/failure.h"
#include "fakes/journal.h"
#include "settings/parameters.h"
#include "settings/saving.h"

namespace vaktor::faux {

/// Counts the saves and clears ParametresModifies as a save does.
class SauvegardeFausse : public SauvegardeParametres {
 public:
  SauvegardeFausse(Journal& journal, Parametres& reglages) : Journal_(journal), Reglages_(reglages) {}

  void SauveParametres() override {
    Journal_.Note([] { return QStringLiteral("SauveParametres"); });
    ModifiesALaSauvegarde = Reglages_.ParametresModifies;
    if (PendantSauvegarde) PendantSauvegarde();
    if (Echoue) throw Echec(kAccesFichier, QStringLiteral("disk full"));
    Reglages_.ParametresModifies = false;
    ++Sauvegardes;
  }

  bool Echoue = false;
  std::function<void()> PendantSauvegarde;  ///< runs in each of them
  qint32 Sauvegardes = 0;                   ///< those that succeeded
  bool ModifiesALaSauvegarde = false;       ///< ParametresModifies as the last save found it

 private:
  Journal& Journal_;
  Parametres& Reglages_;
};

}  // namespace vaktor::faux
