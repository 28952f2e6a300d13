// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ports/interface_sounds.h"
#include "fakes/journal.h"

namespace vaktor::faux {

/// Notes what was asked for and makes no sound.
class SonsFaux : public SonsInterface {
 public:
  explicit SonsFaux(Journal& journal) : Journal_(journal) {}

  void JoueSon(qint32 n) override {
    Journal_.Note([n] { return QStringLiteral("JoueSon %1").arg(n); });
    DernierSon = n;
    if (Suite != nullptr) Suite->JoueSon(n);
  }
  void SurvolSon(qint32 id) override {
    Journal_.Note([id] { return QStringLiteral("SurvolSon %1").arg(id); });
    DernierSurvol = id;
    if (Suite != nullptr) Suite->SurvolSon(id);
  }

  qint32 DernierSon = -1;
  qint32 DernierSurvol = 5555;
  SonsInterface* Suite = nullptr;  ///< is told the same

 private:
  Journal& Journal_;
};

}  // namespace vaktor::faux
