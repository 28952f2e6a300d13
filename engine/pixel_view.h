// SPDX-License-Identifier: GPL-3.0-or-later
// The small view Picture2 in pixel mode: the moving points of the picture on black, at half scale.
#pragma once

#include <QImage>

#include "engine/comparison/frame_comparison.h"

namespace vaktor {

/// Forms draw from Image() by reference while they are told to; who keeps a copy of it makes the next frame copy it.
class VueMouvement {
 public:
  static constexpr int kLargeur = 127;
  static constexpr int kHauteur = 109;

  VueMouvement();

  /// Back to black.
  void Efface();
  /// Copies the block of the live picture whose corner is the changed sample (x, y) to half its coordinates. What lies
  /// outside the picture or outside the view is left out.
  void MarquePoint(const TrameBrute& trame, qint32 x, qint32 y);

  const QImage& Image() const { return Image_; }

 private:
  QImage Image_;
  bool Noire_ = true;
};

}  // namespace vaktor
