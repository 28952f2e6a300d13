// SPDX-License-Identifier: GPL-3.0-or-later
// The loss of a camera's signal: from when on it is shown, told, and acted upon. Each moment is a number of its own.
#pragma once

#include <QtGlobal>
#include <algorithm>

namespace vaktor {

/// Milliseconds. A USB camera that changes its exposure can hold its breath for a second; twice that is no camera any
/// more.
struct PerteSignal {
  /// Age of the newest frame from which on the signal is lost: the notice stands over the picture, and the health of
  /// the watch hears of it.
  static constexpr qint32 kDite = 2000;
  /// Age of the newest frame at which the driver gives the stream up and opens it again.
  static constexpr qint32 kReouverte = 2000;
  /// How long it must be lost without a gap until it counts for the health of the watch: sign, desktop and mail. A
  /// camera of the network that stumbles for a moment, and is back by itself, is no news.
  static constexpr qint32 kComptee = 5000;

  /// A camera that tells of a slow rate gets so many of its periods where that is longer than the ages above, but never
  /// more than the maximum.
  static constexpr qint32 kPeriodes = 4;
  static constexpr qint32 kMaximum = 60'000;

  /// The age, `auMoins` or longer, for a camera of cadenceNum / cadenceDen frames a second; cadenceNum 0 and below: it
  /// does not tell.
  static constexpr qint32 DelaiPour(qint32 auMoins, qint32 cadenceNum, qint32 cadenceDen) {
    if (cadenceNum <= 0) return auMoins;
    const qint64 periodes = qint64{1000} * kPeriodes * cadenceDen / cadenceNum;
    return static_cast<qint32>(std::clamp<qint64>(periodes, auMoins, std::max(auMoins, kMaximum)));
  }
};

}  // namespace vaktor
