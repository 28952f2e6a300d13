// SPDX-License-Identifier: GPL-3.0-or-later
// What the start arguments "/alarm" and "/surve" switch on by themselves, once the program is up.
#pragma once

#include <functional>
#include <memory>

#include "app/start_arguments.h"
#include "engine/ports/timers.h"

namespace vaktor {

struct PortsDemarrageAuto {
  FabriqueMinuteries& Minuteries;
  /// The camera is being connected, or a dialog of its driver is open: nothing is switched then.
  std::function<bool()> EnPause;
  std::function<void()> BasculeLive;
  std::function<void()> BasculeAlarme;
};

/// Owner: app/. User-interface thread.
class DemarrageAuto {
 public:
  explicit DemarrageAuto(const PortsDemarrageAuto& ports);

  /// What was asked for in the command line; starts the one-shot timer if anything was.
  void Lance(const ArgumentsAuto& arguments);
  /// The FTP companion's "*OKO*": starts the timer again if anything was asked for. What the first shot switched on is
  /// switched off then.
  void Relance();

 private:
  void Demarre();

  const PortsDemarrageAuto Ports_;
  const std::unique_ptr<Minuterie> TimerAutoStar_;
  ArgumentsAuto Arguments_;
};

}  // namespace vaktor
