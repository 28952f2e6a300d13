// SPDX-License-Identifier: GPL-3.0-or-later
// Waits on the user-interface thread without holding its windows.
#pragma once

#include <chrono>
#include <functional>

namespace vaktor {

/// Lets the event loop turn until `fait` says true, which it is asked every few milliseconds; true then. False when the
/// time is over, or when the program ends its event loops in the meantime: nothing is waited for any more.
/// Windows are painted and can be closed, timers tick, signals and words of other processes come in. The user's mouse
/// and keys wait and reach their windows, in their order, with the first events that run after the return, unless a
/// message stands in front of the window by then.
/// Without an application object, or from another thread, it only sleeps.
bool AttendVivant(const std::function<bool()>& fait, std::chrono::milliseconds limite);

}  // namespace vaktor
