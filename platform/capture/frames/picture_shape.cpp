// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/frames/picture_shape.h"

#include <libyuv/rotate_argb.h>

#include <QtMath>
#include <algorithm>

#include "platform/capture/choice/fitted_size.h"

namespace vaktor {
namespace {

constexpr double kExtreme = 4.0;
constexpr double kInvisible = 0.01;

/// Every position is a turn to the right, and then perhaps left and right exchanged.
struct Geste {
  libyuv::RotationMode Tour;
  bool Miroir;
};

Geste GesteDe(GstVideoOrientationMethod orientation) {
  switch (orientation) {
    case GST_VIDEO_ORIENTATION_90R:
      return {libyuv::kRotate90, false};
    case GST_VIDEO_ORIENTATION_180:
      return {libyuv::kRotate180, false};
    case GST_VIDEO_ORIENTATION_90L:
      return {libyuv::kRotate270, false};
    case GST_VIDEO_ORIENTATION_HORIZ:
      return {libyuv::kRotate0, true};
    case GST_VIDEO_ORIENTATION_VERT:
      return {libyuv::kRotate180, true};
    case GST_VIDEO_ORIENTATION_UL_LR:
      return {libyuv::kRotate90, true};
    case GST_VIDEO_ORIENTATION_UR_LL:
      return {libyuv::kRotate270, true};
    default:
      return {libyuv::kRotate0, false};
  }
}

}  // namespace

QSize FormeImage::Carree(QSize taille) const {
  if (PixelNum <= 0 || PixelDen <= 0) return taille;
  const double rapport = double(PixelNum) / PixelDen;
  if (rapport > kExtreme || rapport < 1 / kExtreme || qAbs(rapport - 1) < kInvisible) return taille;
  const int largeur = qMax(2, 2 * qRound(taille.width() * rapport / 2));
  return largeur > kCoteMaximum ? taille : QSize(largeur, taille.height());
}

QSize FormeImage::Debout(QSize taille) const {
  const libyuv::RotationMode tour = GesteDe(Orientation).Tour;
  return tour == libyuv::kRotate90 || tour == libyuv::kRotate270 ? taille.transposed() : taille;
}

bool RedresseImage(const QImage& de, GstVideoOrientationMethod orientation, QImage& vers) {
  const Geste geste = GesteDe(orientation);
  const auto pas = [](const QImage& image) { return static_cast<int>(image.bytesPerLine()); };
  if (libyuv::ARGBRotate(de.constBits(), pas(de), vers.bits(), pas(vers), de.width(), de.height(), geste.Tour) != 0)
    return false;
  if (!geste.Miroir) return true;
  for (int y = 0; y < vers.height(); ++y) {
    auto* ligne = reinterpret_cast<QRgb*>(vers.scanLine(y));
    std::reverse(ligne, ligne + vers.width());
  }
  return true;
}

}  // namespace vaktor
