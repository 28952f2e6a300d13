// SPDX-License-Identifier: GPL-3.0-or-later
// Small pictures and the road to a running camera, for the tests of the engine.
#pragma once

#include <gtest/gtest.h>

#include "engine/detection_zone.h"
#include "fakes/surveillance_bench.h"

namespace vaktor {

class BancEssai : public testing::Test, public faux::BancSurveillance {
 protected:
  static constexpr int kLargeur = 60;
  static constexpr int kHauteur = 60;

  /// A picture of one colour, 0x00RRGGBB.
  static QImage Unie(QRgb couleur, int largeur = kLargeur, int hauteur = kHauteur) {
    QImage image(largeur, hauteur, QImage::Format_RGB32);
    image.fill(couleur);
    return image;
  }
  /// Black, with the first `points` samples (zone corner at 0, 0) of pure blue: each counts at every tolerance.
  static QImage AvecPoints(int points, int largeur = kLargeur, int hauteur = kHauteur) {
    QImage image = Unie(0, largeur, hauteur);
    const int parLigne = (largeur + 2) / 3;
    for (int i = 0; i < points; ++i) image.setPixel(3 * (i % parLigne), 3 * (i / parLigne), qRgb(0, 0, 255));
    return image;
  }

  void Image(const QImage& image) { Pilote.Image = image; }
  /// One frame through one tick.
  void Trame(const QImage& image) {
    Image(image);
    Temps.Declenche(QStringLiteral("Timer1"));
  }
  void Tic() { Temps.Declenche(QStringLiteral("Timer1")); }

  /// The camera runs, a black picture has gone through, the zone is the whole picture from (0, 0) on, the tolerance
  /// stands still.
  void DemarreSurNoir() {
    Reglages.SeuilAuto = false;
    Reglages.SeuilDetection = 1000;
    Engin.BasculeCamera();
    Trame(Unie(0));
    PoseZoneEntiere();
    Trame(Unie(0));
    Trame(Unie(0));
  }
  void PoseZoneEntiere() {
    Engin.Souris().Appuie(5, 5);
    Engin.Souris().Relache(5, 5);
  }
  void PoseZone(qint32 gauche, qint32 haut, qint32 droite, qint32 bas) {
    Engin.Souris().Appuie(gauche, haut);
    Engin.Souris().Deplace(droite, bas);
  }
  /// Camera, countdown, armed.
  void ArmeSurNoir() {
    DemarreSurNoir();
    Arme();
    Trame(Unie(0));
  }
  void Arme() {
    Engin.BasculeAlarme();
    for (int i = 0; i < 60 && !Engin.Alarme().AlarmeArmee; ++i) Temps.Avance(1000);
    ASSERT_TRUE(Engin.Alarme().AlarmeArmee);
  }

  const EtatDetection& Detection() const { return Engin.Detection(); }
  const ZoneDetection& Zone() const { return Engin.Detection().Zone; }
  bool Active(const char* nom) const { return Temps.Trouve(QString::fromLatin1(nom))->EstActive(); }
};

inline void AttendZone(const ZoneDetection& zone, qint32 gauche, qint32 haut, qint32 droite, qint32 bas) {
  EXPECT_EQ(zone.Gauche, gauche);
  EXPECT_EQ(zone.Haut, haut);
  EXPECT_EQ(zone.Droite, droite);
  EXPECT_EQ(zone.Bas, bas);
}

}  // namespace vaktor
