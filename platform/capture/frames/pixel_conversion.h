// SPDX-License-Identifier: GPL-3.0-or-later
// From what cameras and decoders give to the program's one picture format: once, straight into its memory.
#pragma once

#include <gst/video/video.h>
#include <libyuv/convert_argb.h>

#include <QImage>
#include <QRect>
#include <array>

namespace vaktor {

/// Raw formats that are converted here. Any other needs an element before.
bool FormatConvertible(GstVideoFormat format);
/// All of them as caps for the end of a pipeline; the caller owns them.
GstCaps* DonneCapsBruts();

/// A raw frame as it lies in memory, whoever holds it.
struct PlansImage {
  struct Plan {
    const quint8* Octets = nullptr;
    int Pas = 0;  ///< bytes from one row to the next
  };
  GstVideoFormat Format = GST_VIDEO_FORMAT_UNKNOWN;
  GstVideoColorMatrix Matrice = GST_VIDEO_COLOR_MATRIX_UNKNOWN;
  bool Pleine = false;  ///< range 0 to 255
  int Largeur = 0, Hauteur = 0;
  std::array<Plan, 3> Plans{};  ///< Y, U, V where each has a plane of its own, else as they are stored
};
PlansImage PlansDe(const GstVideoFrame& trame);

/// Brightness and the two colours have a plane each.
bool EstPlanaire(GstVideoFormat format);
/// What libyuv converts the frame with.
const libyuv::YuvConstants* MatriceDe(const PlansImage& plans);

/// Converts the whole frame into `image` (Format_RGB32, same size, nobody else holding it): bytes B, G, R, 0xff. The
/// colour matrix and the range are those the frame announces; where it announces nothing GStreamer has already put
/// the usual ones in (BT.601 for small pictures, BT.709 for large ones). Any thread, no allocation.
/// False for a format or a size that does not fit; the image's content is then undefined.
bool ConvertitImage(const PlansImage& plans, QImage& image);
bool ConvertitImage(const GstVideoFrame& trame, QImage& image);
/// A part of the frame, with the same bytes, the first to `vers` and a row `pas` bytes behind the one before. False for
/// a part that does not lie within the frame or whose first column shares its colour with the one before, and for a
/// format that is not EstPlanaire.
bool ConvertitPart(const PlansImage& plans, const QRect& part, quint8* vers, int pas);

}  // namespace vaktor
