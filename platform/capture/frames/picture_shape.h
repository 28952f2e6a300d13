// SPDX-License-Identifier: GPL-3.0-or-later
// How a picture stands and how wide its pixels are, as a film's header or a camera says it.
#pragma once

#include <gst/video/video.h>

#include <QImage>
#include <QSize>

namespace vaktor {

struct FormeImage {
  GstVideoOrientationMethod Orientation = GST_VIDEO_ORIENTATION_IDENTITY;
  int PixelNum = 1, PixelDen = 1;  ///< width of a pixel to its height

  bool EstDroite() const { return Orientation == GST_VIDEO_ORIENTATION_IDENTITY; }
  /// The size in which a picture of `taille` has square pixels: as high, and as wide as that makes it, in whole pairs.
  /// The size itself where that is less than a hundredth off, which nobody sees and which would cost every frame its
  /// scaling, where the width told is no camera's (beyond four to one either way), and where a side would be too long.
  QSize Carree(QSize taille) const;
  /// The same size when it stands upright.
  QSize Debout(QSize taille) const;
};

/// Turns and mirrors a picture into one of Debout's size, both Format_RGB32, which nobody else holds. False when it
/// cannot.
bool RedresseImage(const QImage& de, GstVideoOrientationMethod orientation, QImage& vers);

}  // namespace vaktor
