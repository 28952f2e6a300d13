// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/gallery_layout.h"

#include <cmath>

#include "base/numbers.h"

namespace vaktor {
namespace {

constexpr double kMargeListe = 200;    // twips under the list
constexpr double kMargeFenetre = 800;  // twips around a fitted photo, on each axis
constexpr int kPasBande = 500;         // pixels

double Twips(int pixels) { return static_cast<double>(pixels) * kTwipsParPixel; }
int Pixels(double twips) { return ArrondiPair(twips / kTwipsParPixel); }

}  // namespace

PlacesGalerie PlaceGalerie(const QSize& interieur, int hautListe, const QSize& photo) {
  const double largeur = Twips(interieur.width());
  const double hauteur = Twips(interieur.height());
  const double panneau = Twips(kLargeurPanneau);
  PlacesGalerie places;
  places.HauteurPanneau = interieur.height();
  // Without its sign: a window that is lower than the top of the list gets a list that grows while it shrinks further.
  places.HauteurListe = Pixels(std::abs(hauteur - Twips(hautListe) - kMargeListe));
  places.Photo = {Pixels((largeur - panneau) / 2 + panneau - Twips(photo.width()) / 2),
                  Pixels(hauteur / 2 - Twips(photo.height()) / 2)};
  return places;
}

QSize TailleAutourPhoto(const QSize& photo) {
  return {Pixels(Twips(kLargeurPanneau) + Twips(photo.width()) + kMargeFenetre),
          Pixels(Twips(photo.height()) + kMargeFenetre)};
}

// Fifteen times too large, and so only the upper left part shows: the soft tone that the window is known for.
QSize TailleFondEtire(const QSize& exterieur) { return exterieur * kTwipsParPixel; }

QList<int> BandesPanneau(int hauteurPanneau) {
  QList<int> hauts;
  for (int haut = 0; haut < hauteurPanneau; haut += kPasBande) hauts += haut;
  return hauts;
}

}  // namespace vaktor
