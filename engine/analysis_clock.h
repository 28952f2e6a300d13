// SPDX-License-Identifier: GPL-3.0-or-later
// The time of the analysis: two moments that it remembers, on a scale whose origin moves along, so that the counter of
// milliseconds never comes to its end.
#pragma once

#include "engine/limits.h"
#include "engine/ports/clock.h"

namespace vaktor {

/// Owner: the analysis. The counter of the system turns negative after 2^31 ms, 24.8 days; a checked difference across
/// that moment fails, and the detection with it. So times are kept as counter minus an origin, and the origin moves on
/// long before: whoever leaves the program alone for a year finds it at work.
class TempsAnalyse {
 public:
  explicit TempsAnalyse(const Horloge& temps) : Temps_(temps) {}

  /// Before the differences of a frame are taken: subtracts one amount from now, by moving the origin, and from both
  /// remembered moments, if the origin lies far back. Without effect on any difference but of moments that are older
  /// than kMomentPlusAncien (engine/limits.h). May be called after any time, weeks with the camera off included.
  void Ramene();

  /// Milliseconds since the last NoteTick, NoteLive; since the counter's 0 when there was none. Throws
  /// Echec(kDepassement) when the difference does not fit 32 bits: more than 24 days passed since Ramene.
  qint32 DepuisTick() const;
  qint32 DepuisLive() const;
  void NoteTick() { DernierTick_ = Maintenant(); }
  void NoteLive() { DernierLive_ = Maintenant(); }

 private:
  qint32 Maintenant() const;

  const Horloge& Temps_;
  quint32 Origine_ = 0;     // the counter's value at 0 of our scale; the program's start to begin with
  qint32 DernierTick_ = 0;  // end of the last analysis, our scale
  qint32 DernierLive_ = 0;  // last live image, our scale
};

}  // namespace vaktor
