// SPDX-License-Identifier: GPL-3.0-or-later
// The loss of a camera's signal: from when on it is shown, told, and acted upon.
#pragma once

#include <QtGlobal>
#include <algorithm>
#include <optional>

namespace vaktor {

/// Milliseconds. A camera is lost when its newest frame is older than four times the longest gap between two frames
/// that it lately had: the notice then stands over the picture, the health of the watch hears of it, and the driver
/// opens the stream again.
struct PerteSignal {
  /// A USB camera that changes its exposure can hold its breath for a second; twice that is no camera any more.
  static constexpr qint32 kMinimum = 2000;
  static constexpr qint32 kMaximum = 60'000;
  static constexpr qint32 kTrous = 4;
  /// For a camera of the network before its gaps are known: what rate it tells, if any, is seldom what it sends.
  static constexpr qint32 kSansMesure = 15'000;
  /// How long it must be lost without a gap until it counts for the health of the watch: sign, desktop and mail. A
  /// camera of the network that stumbles for a moment, and is back by itself, is no news.
  static constexpr qint32 kComptee = 5000;

  static constexpr qint32 DelaiPour(qint64 trou) {
    return static_cast<qint32>(std::clamp<qint64>(kTrous * trou, kMinimum, kMaximum));
  }
  /// What a rate of cadenceNum / cadenceDen frames a second promises; cadenceNum 0 and below: it does not tell.
  static constexpr qint32 DelaiPromis(qint32 cadenceNum, qint32 cadenceDen) {
    return cadenceNum <= 0 ? kMinimum : DelaiPour(qint64{1000} * cadenceDen / cadenceNum);
  }
};

/// The gaps between the frames of one opening, by a clock of milliseconds that never goes back.
class TrousRecents {
 public:
  /// Before so many gaps nothing is known: two pictures may come at once, and the third after seconds.
  static constexpr int kMesures = 2;
  /// A gap is remembered for one to two of these: what was slow at dusk is not slow for ever. Not below kMaximum, so
  /// that the longest gap is not forgotten while the frame behind it is awaited.
  static constexpr qint64 kRecent = PerteSignal::kMaximum;

  void Oublie() { *this = {}; }
  void Note(qint64 maintenant, qint64 trou) {
    if (Mesures_ == 0 || maintenant - Debut_ >= 2 * kRecent) Avant_ = Courant_ = 0;
    if (Mesures_ == 0 || maintenant - Debut_ >= kRecent) {
      Avant_ = Courant_;
      Courant_ = 0;
      Debut_ = maintenant;
    }
    Courant_ = std::max(Courant_, trou);
    Mesures_ = std::min(Mesures_ + 1, kMesures);
  }
  /// At which age of the newest frame the camera is lost; empty while too little is known.
  std::optional<qint32> Delai() const {
    if (Mesures_ < kMesures) return std::nullopt;
    return PerteSignal::DelaiPour(std::max(Avant_, Courant_));
  }

 private:
  qint64 Debut_ = 0;    // of Courant_
  qint64 Courant_ = 0;  // the longest since then
  qint64 Avant_ = 0;    // the longest of the time before it
  int Mesures_ = 0;
};

}  // namespace vaktor
