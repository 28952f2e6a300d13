// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/detection_zone.h"

#include <utility>

#include "base/numbers.h"

namespace vaktor {

void RemetZoneCamera(EtatSurveillance& etat) {
  const QSize taille = etat.Surface.Taille();
  etat.Detection.Zone = {.Gauche = 1, .Droite = taille.width(), .Haut = 1, .Bas = taille.height()};
}

void SuitTailleSurface(EtatSurveillance& etat, QSize taille) {
  etat.Detection.Zone.Gauche = 0;
  etat.Detection.Zone.Droite = taille.width();
  etat.Detection.Zone.Bas = taille.height();
}

void SourisZone::Appuie(double x, double y) {
  const qint32 colonne = ArrondiPair(x);
  const qint32 ligne = ArrondiPair(y);
  Etat_.Detection.Zone = {.Gauche = colonne, .Droite = colonne, .Haut = ligne, .Bas = ligne};
}

void SourisZone::SuitCoin(double x, double y) {
  Etat_.Detection.Zone.Droite = ArrondiPair(x);
  Etat_.Detection.Zone.Bas = ArrondiPair(y);
}

void SourisZone::Deplace(double x, double y) {
  SuitCoin(x, y);
  const ZoneDetection& zone = Etat_.Detection.Zone;
  Etat_.Surface.Dessine({zone.Gauche, zone.Haut, zone.Droite, zone.Bas});
}

void SourisZone::Relache(double x, double y) {
  SuitCoin(x, y);
  ZoneDetection& zone = Etat_.Detection.Zone;
  // Right against bottom is an x against a y: a drag that ends on the diagonal of the picture resets the zone too.
  // Left against right is the simple click.
  if (zone.Droite == zone.Bas || zone.Gauche == zone.Droite) {
    const QSize taille = Etat_.Surface.Taille();
    zone = {.Gauche = 0, .Droite = taille.width(), .Haut = 0, .Bas = taille.height()};
  }
  if (zone.Gauche > zone.Droite) std::swap(zone.Gauche, zone.Droite);
  if (zone.Haut > zone.Bas) std::swap(zone.Haut, zone.Bas);
}

}  // namespace vaktor
