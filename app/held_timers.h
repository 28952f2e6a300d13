// SPDX-License-Identifier: GPL-3.0-or-later
// Timers whose ticks fall away while the program must not act: before its settings are loaded, and once it ends.
#pragma once

#include <functional>

#include "engine/ports/timers.h"

namespace vaktor {

/// Every timer of engine, splash and inboxes is made here. A tick that falls away is not made up for; the timer goes on
/// and comes again after its interval. Its state is never changed: Timer3's for one means that the countdown runs.
/// Owner: app/, outlives its timers. User-interface thread.
class MinuteriesRetenues : public FabriqueMinuteries {
 public:
  /// `libre`: asked at each tick; false lets it fall away.
  MinuteriesRetenues(FabriqueMinuteries& vraies, std::function<bool()> libre)
      : Vraies_(vraies), Libre_(std::move(libre)) {}

  std::unique_ptr<Minuterie> CreeMinuterie(const QString& nom, qint32 millisecondes,
                                           std::function<void()> tic) override {
    return Vraies_.CreeMinuterie(nom, millisecondes, [this, tic = std::move(tic)] {
      if (Libre_()) tic();
    });
  }

 private:
  FabriqueMinuteries& Vraies_;
  std::function<bool()> Libre_;
};

}  // namespace vaktor
