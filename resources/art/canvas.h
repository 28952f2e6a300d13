// SPDX-License-Identifier: GPL-3.0-or-later
// Drawing board of the product's art: everything is drawn once, in points, and rendered at one and two pixels a point.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QString>
#include <functional>

namespace vaktor::art {

/// Draws `dessin` on a board of largeur x hauteur points at `echelle` pixels a point; the painter is antialiased and
/// already scaled. The result is Format_RGB32, or ARGB32 when `transparent`.
QImage Dessine(int largeur, int hauteur, int echelle, const std::function<void(QPainter&)>& dessin,
               bool transparent = false);

/// A number in [0, 1) that hangs on nothing but its arguments: grain comes out the same on every machine.
double Grain(quint32 x, quint32 y, quint32 graine);

/// Adds grain to an image: `force` levels up or down at the most, drawn out to `etirement` pixels along x.
void AjouteGrain(QImage& image, double force, int etirement, quint32 graine);

/// Shifts all pixels until the mean colour of the image is `moyenne` to within a tenth of a level.
void AjusteMoyenne(QImage& image, const QColor& moyenne);

/// Mean colour as three reals.
struct Moyenne {
  double Rouge = 0, Vert = 0, Bleu = 0;
};
Moyenne CalculeMoyenne(const QImage& image);

/// The image with a palette of at most `couleurs` colours, chosen along its brightness.
QImage ReduitPalette(const QImage& image, int couleurs);

/// Writes `dossier`/`nom`.png. Ends the program with a message when that fails.
void Enregistre(const QImage& image, const QString& dossier, const QString& nom);

}  // namespace vaktor::art
