// SPDX-License-Identifier: GPL-3.0-or-later
// Waits on the user-interface thread without holding its windows.
#pragma once

#include <chrono>
#include <functional>

namespace vaktor {

/// What becomes of the user's mouse and keys meanwhile.
enum class Gestes {
  /// They wait and reach their windows, in their order, with the first events that run after the return, unless a
  /// message stands in front of the window by then.
  kRetient,
  /// They are let through: for a wait of many seconds, by whoever sees to it that a second order does no harm.
  kLaisse,
};

/// Lets the event loop turn until `fait` says true, which it is asked every few milliseconds; true then. False when the
/// time is over, or when the program ends its event loops in the meantime: nothing is waited for any more.
/// Windows are painted and can be closed, timers tick, signals and words of other processes come in; the pointer shows
/// that something is under way and that it can still be used.
/// Without an application object, or from another thread, it only sleeps.
bool AttendVivant(const std::function<bool()>& fait, std::chrono::milliseconds limite,
                  Gestes gestes = Gestes::kRetient);

}  // namespace vaktor
