// SPDX-License-Identifier: GPL-3.0-or-later
// Which pixels of a picture the detection looks at, and how many of them it can hold: step, phase and capacity. The
// comparison and its view, the capture driver, which need not make the other pixels, and the choice of a camera's
// format all have them from here.
#pragma once

#include <QtGlobal>

#include "engine/limits.h"

namespace vaktor {

/// Step in pixels, on x and on y; 1 and up. What gathers samples with vectors is written for this one and leaves any
/// other to the plain loops (engine/comparison, platform/capture/frames).
inline constexpr qint32 kPasEchantillon = 3;

/// Samples that the table of the frame before can hold: its entries 1, 4, 7 and so on, 333,334 of them.
inline constexpr qint32 kEchantillonsMax = (kIndexMax - 1) / kPasEchantillon + 1;

/// Samples from `debut` to `fin`, both included, of a scan that begins at `debut`. None where they are in the wrong
/// order.
constexpr qint64 CompteEchantillons(qint32 debut, qint32 fin) {
  return debut > fin ? 0 : (qint64{fin} - debut) / kPasEchantillon + 1;
}

/// Samples among so many pixels, 0 and up, the first of which is one.
constexpr qint32 EchantillonsParmi(qint32 pixels) {
  return static_cast<qint32>((qint64{pixels} + kPasEchantillon - 1) / kPasEchantillon);
}

/// Whether a scan from `debut` to `fin` meets a sample among the pixels 0 to `cote` - 1; its edges may lie outside.
constexpr bool ToucheImage(qint32 debut, qint32 fin, qint32 cote) {
  const qint64 premier =
      debut >= 0 ? debut : debut + (kPasEchantillon - 1 - qint64{debut}) / kPasEchantillon * kPasEchantillon;
  return premier <= fin && premier < cote;
}

/// Where a scan lies in the grid of the step: column and row of its first sample that is not left of or above the
/// picture's corner, 0 to kPasEchantillon - 1.
struct PhaseEchantillons {
  qint32 X = 0, Y = 0;
  bool operator==(const PhaseEchantillons&) const = default;
};

/// The phase, on either axis, of a scan that begins at `bord`, which may lie outside the picture.
constexpr qint32 PhaseDe(qint32 bord) { return (bord % kPasEchantillon + kPasEchantillon) % kPasEchantillon; }

}  // namespace vaktor
