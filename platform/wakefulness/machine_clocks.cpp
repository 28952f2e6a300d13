// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/wakefulness/machine_clocks.h"

#include <ctime>

namespace vaktor {
namespace {

qint64 LitMs(clockid_t horloge) {
  timespec lu{};
  ::clock_gettime(horloge, &lu);
  return qint64{lu.tv_sec} * 1000 + lu.tv_nsec / 1'000'000;
}

}  // namespace

// On Linux the monotonic clock stands still in a sleep, and only the one since the boot counts it.
InstantsMachine LitHorlogesMachine() { return {LitMs(CLOCK_MONOTONIC), LitMs(CLOCK_BOOTTIME), LitMs(CLOCK_REALTIME)}; }

}  // namespace vaktor
