// SPDX-License-Identifier: GPL-3.0-or-later
// Where the windows open: the main one in the middle of the screen, the monitor so that it covers as little of it as
// the screen allows.
#pragma once

#include <QRect>

namespace vaktor {

/// Top left corner for a window of `taille` (frame included) on `ecran`, beside `fenetre`: to the right, to the left,
/// below, above, else the corner of the screen where it covers least of it. A window larger than the screen begins at
/// the screen's corner.
QPoint PlaceFenetre(const QRect& ecran, const QRect& fenetre, const QSize& taille);

/// Top left corner for a window of `taille` (frame included) in the middle of `ecran`.
QPoint PlaceCentree(const QRect& ecran, const QSize& taille);

}  // namespace vaktor
