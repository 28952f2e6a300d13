// SPDX-License-Identifier: GPL-3.0-or-later
// The pump of the program: the pending events of Qt.
#pragma once

#include "engine/ports/event_pump.h"

namespace vaktor {

/// User-interface thread. Needs a running QCoreApplication; without one it does nothing.
class PompeEvenementsQt : public PompeEvenements {
 public:
  void PompeMessages() override;
};

}  // namespace vaktor
