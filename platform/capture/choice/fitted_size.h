// SPDX-License-Identifier: GPL-3.0-or-later
// In which size a picture comes to the detection: its own, or a smaller one where it has more samples than the
// detection can hold. Everything above the driver sees that size and no other.
#pragma once

#include <QSize>

#include "platform/capture/choice/camera_format.h"

namespace vaktor {

/// Pixels of the largest picture that is looked at: a camera that announces more is damaged or means harm, and gets no
/// memory for it. Far more than any camera has.
inline constexpr qint64 kPixelsMaximum = 64'000'000;
/// Its longest side: libyuv keeps places in a picture in the upper half of 32 bits, and reads far outside of one whose
/// rows or columns are more.
inline constexpr int kCoteMaximum = 32'767;
/// Whether a picture of these sides is beyond one of the two, and is not looked at.
constexpr bool EstDemesuree(qint64 largeur, qint64 hauteur) {
  return largeur > kCoteMaximum || hauteur > kCoteMaximum || largeur * hauteur > kPixelsMaximum;
}

/// Whether the largest zone of such a picture, that of a simple click, has more samples than the detection can hold
/// (engine/sampling.h): both of its edges are included. Not so for an empty size.
bool EstTropGrande(QSize taille);

/// The size itself where the detection can hold it, else a smaller one with even sides and of the same shape to within
/// a pixel: three quarters or a half of both sides, which cost least by far, where at least half of the pixels stay
/// that could be held; otherwise the largest that can. Of 3840x2160 and of 2560x1440 it is 1920x1080. A picture of a
/// single row or column cannot be made smaller so, and keeps its size.
QSize TailleRetenue(QSize taille);
/// Of the pictures of a format, whatever their coding.
QSize TailleRetenue(const FormatCamera& format);
/// Whether they are scaled down.
bool EstReduit(const FormatCamera& format);

}  // namespace vaktor
