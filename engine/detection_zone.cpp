// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/detection_zone.h"

#include <algorithm>
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
  Montre();
}

// At once; the next frame draws it anyway.
void SourisZone::Montre() {
  const ZoneDetection& zone = Etat_.Detection.Zone;
  Etat_.Surface.Dessine({zone.Gauche, zone.Haut, zone.Droite, zone.Bas});
}

void SourisZone::Relache(double x, double y) {
  SuitCoin(x, y);
  ZoneDetection& zone = Etat_.Detection.Zone;
  // Right against bottom is an x against a y: a drag that ends on the diagonal of the picture resets the zone too.
  // Left against right is the simple click.
  if (zone.Droite == zone.Bas || zone.Gauche == zone.Droite) Remet();
  if (zone.Gauche > zone.Droite) std::swap(zone.Gauche, zone.Droite);
  if (zone.Haut > zone.Bas) std::swap(zone.Haut, zone.Bas);
}

void SourisZone::Remet() {
  const QSize taille = Etat_.Surface.Taille();
  Etat_.Detection.Zone = {.Gauche = 0, .Droite = taille.width(), .Haut = 0, .Bas = taille.height()};
}

// The mouse may have left a zone that reaches beyond the picture, or one without a height.
void SourisZone::Redresse() {
  const QSize taille = Etat_.Surface.Taille();
  const auto redresse = [](qint32& debut, qint32& fin, qint32 longueur) {
    if (debut > fin) std::swap(debut, fin);
    debut = std::clamp(debut, 0, std::max(longueur - kCoteMin, 0));
    fin = std::clamp(fin, std::min(debut + kCoteMin, longueur), longueur);
  };
  ZoneDetection& zone = Etat_.Detection.Zone;
  redresse(zone.Gauche, zone.Droite, taille.width());
  redresse(zone.Haut, zone.Bas, taille.height());
}

void SourisZone::Pousse(qint32 dx, qint32 dy) {
  Redresse();
  const QSize taille = Etat_.Surface.Taille();
  ZoneDetection& zone = Etat_.Detection.Zone;
  dx = std::clamp(dx, -zone.Gauche, taille.width() - zone.Droite);
  dy = std::clamp(dy, -zone.Haut, taille.height() - zone.Bas);
  zone = {.Gauche = zone.Gauche + dx, .Droite = zone.Droite + dx, .Haut = zone.Haut + dy, .Bas = zone.Bas + dy};
  Montre();
}

void SourisZone::Etire(qint32 dx, qint32 dy) {
  Redresse();
  ZoneDetection& zone = Etat_.Detection.Zone;
  zone.Droite = std::max(zone.Droite + dx, zone.Gauche + kCoteMin);
  zone.Bas = std::max(zone.Bas + dy, zone.Haut + kCoteMin);
  Redresse();
  Montre();
}

}  // namespace vaktor
