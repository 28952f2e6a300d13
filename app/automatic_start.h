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
  /// Sees to it that the camera runs, and says whether it does; where it does not, called again a second later, for as
  /// long as it takes. Shows no message.
  std::function<bool()> AttendCamera;
  std::function<bool()> EstLive;   ///< the live page is switched on
  std::function<bool()> EstArmee;  ///< the alarm is armed, or counts down
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
  /// The alarm is to be armed and waits for the camera.
  bool AttendPourArmer() const { return Arguments_.Alarme && AttenduCamera_; }

 private:
  void Demarre();

  const PortsDemarrageAuto Ports_;
  const std::unique_ptr<Minuterie> TimerAutoStar_;
  ArgumentsAuto Arguments_;
  bool AttenduCamera_ = false;  // the camera was not there at once
};

}  // namespace vaktor
