// SPDX-License-Identifier: GPL-3.0-or-later
// The frosted pane: a page's own bitmap with the window's background showing through it.
#pragma once

#include <QImage>
#include <QRect>

namespace vaktor {

/// Weight of the background in 255 parts; the page's own bitmap has the rest.
inline constexpr int kPoidsFond = 130;

/// The page as it is shown, RGB32, `place`.size() * echelle pixels. `page` is the page's clean bitmap, `fond` the
/// window's background, both RGB32 at `echelle` pixels a point; `place` is where the page lies on the window, in
/// points. Per channel fond * 130/255 + page * 125/255, to the nearest integer, inside a frame of one point of the
/// page's own bitmap. What shows through is the background under the whole page, drawn into the part inside the frame:
/// two points wider and higher than it is shown, so that each pixel takes the background's pixel under the middle of
/// its own.
QImage MelangePage(const QImage& page, const QImage& fond, const QRect& place, int echelle);

}  // namespace vaktor
