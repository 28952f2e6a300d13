// SPDX-License-Identifier: GPL-3.0-or-later
// An event pump with one handler waiting, if the test has put one there.
#pragma once

#include <functional>
#include <utility>

#include "engine/ports/event_pump.h"
#include "fakes/journal.h"

namespace vaktor::faux {

class PompeFausse : public PompeEvenements {
 public:
  explicit PompeFausse(Journal& journal) : Journal_(journal) {}

  void PompeMessages() override {
    Journal_.Note([] { return QStringLiteral("PompeMessages"); });
    ++Appels;
    if (const auto attente = std::exchange(EnAttente, nullptr)) attente();
  }

  std::function<void()> EnAttente;  ///< runs in the next pump, once
  qint32 Appels = 0;

 private:
  Journal& Journal_;
};

}  // namespace vaktor::faux
