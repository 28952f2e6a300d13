// SPDX-License-Identifier: GPL-3.0-or-later
// What the comparison of one frame is measured against. All of them take the picture from its first pixel on, every
// third pixel of every third row.
#pragma once

#include <memory>

#include "engine/comparison/frame_comparison.h"

namespace vaktor {

/// The comparison written the obvious way: a pointer, a subtraction, an if. Compiled with -O2.
qint32 CompareSansApprets(const TrameBrute& trame, qint32 tolerance, qint32* table);

/// The limit that memory sets: one load from each cache line that a sample lies on, and nothing else. `anticipe` also
/// fetches the next sampled row ahead, which is faster on some machines and slower on others.
quint64 ToucheLignes(const TrameBrute& trame, bool anticipe);

/// OpenCV: absdiff, threshold, countNonZero and boundingRect of grey pictures, one thread. Each keeps its last picture.
class PairOpenCv {
 public:
  /// `tiers` takes the same samples first (nearest neighbour at a third), else the whole picture is compared.
  explicit PairOpenCv(bool tiers);
  ~PairOpenCv();
  PairOpenCv(const PairOpenCv&) = delete;
  PairOpenCv& operator=(const PairOpenCv&) = delete;

  /// False when this program was built without OpenCV.
  static bool Disponible();
  qint32 Compare(const TrameBrute& trame);

 private:
  struct Images;
  std::unique_ptr<Images> Images_;
  bool Tiers_;
};

}  // namespace vaktor
