// SPDX-License-Identifier: GPL-3.0-or-later
// The product's art, held in the program: each bitmap at one and at two pixels a point.
#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QString>

namespace vaktor {

/// Bitmaps there are for a screen of this device pixel ratio: 1 up to a ratio of 1, else 2.
int EchelleArt(double densite);

/// The bitmap `nom` ("SKIN0") at `echelle` pixels a point, RGB32. Null when it cannot be loaded.
QImage ChargeArt(const QString& nom, int echelle);

/// The same; where it cannot be loaded, a plain bitmap of `taille` points in `couleur`.
QImage ChargeArtOuUni(const QString& nom, int echelle, const QSize& taille, const QColor& couleur);

/// The same with its transparency, ARGB32: a sign that stands on the skin. Null when it cannot be loaded.
QImage ChargeSigne(const QString& nom, int echelle);

/// The application's icon, in all its sizes.
QIcon ChargeIcone();

}  // namespace vaktor
