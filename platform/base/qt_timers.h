// SPDX-License-Identifier: GPL-3.0-or-later
// Timers of the program, on QTimer.
#pragma once

#include "engine/ports/timers.h"

namespace vaktor {

/// Makes precise timers (to the millisecond: a coarse one may be off by 5 per cent) for the thread that calls. A timer
/// may change, stop and start itself from inside its own tick, but must not be destroyed there. A tick that comes due
/// while an earlier one of the same timer still runs is dropped; other timers do tick then.
/// The shortest period is 10 ms: a timer that asks for less ticks a hundred times a second. A timer whose thread was
/// busy is late then, and makes up for nothing. What a tick throws goes on through the event loop to the guard of the
/// application.
class FabriqueMinuteriesQt : public FabriqueMinuteries {
 public:
  std::unique_ptr<Minuterie> CreeMinuterie(const QString& nom, qint32 millisecondes,
                                           std::function<void()> tic) override;
};

}  // namespace vaktor
