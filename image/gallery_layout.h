// SPDX-License-Identifier: GPL-3.0-or-later
// Where things stand in the gallery's window. The arithmetic is in twips, 15 to the pixel, as the window's measures are
// given; sizes come in and places go out in pixels, halves rounded to the even number.
#pragma once

#include <QList>
#include <QPoint>
#include <QSize>

namespace vaktor {

inline constexpr int kTwipsParPixel = 15;
inline constexpr int kLargeurPanneau = 3615 / kTwipsParPixel;  ///< PictureAfff, pixels

struct PlacesGalerie {
  int HauteurPanneau = 0;
  int HauteurListe = 0;
  QPoint Photo = {};  ///< top left corner of PictureVisu
};

/// `interieur`: inner size of the window. `hautListe`: top of FilePhotoVisu. `photo`: size of PictureVisu, whose centre
/// comes to the centre of the space right of the panel, also where it is larger than that space.
PlacesGalerie PlaceGalerie(const QSize& interieur, int hautListe, const QSize& photo);

/// Outer size of the window that fits a photo: 800 twips more on both axes, and the panel.
QSize TailleAutourPhoto(const QSize& photo);

/// The size to which the window's background is stretched: the outer size in twips, taken for pixels.
QSize TailleFondEtire(const QSize& exterieur);

/// Tops, in pixels, of the strips that cover a panel of this height and can be seen.
QList<int> BandesPanneau(int hauteurPanneau);

}  // namespace vaktor
