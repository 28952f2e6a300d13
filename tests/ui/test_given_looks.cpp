// SPDX-License-Identifier: GPL-3.0-or-later
// What no language changes: the words and signs that are the same in all, and which picture stands for which state.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <algorithm>

#include "ui/controls/flag_button.h"
#include "ui/controls/lamp.h"
#include "ui/face/art_images.h"
#include "ui/face/button_faces.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

TEST(GivenWords, AreTheSameInBothLanguages) {
  for (const qint32 langue : {0, 1}) {
    BancFenetre banc(langue);
    EXPECT_EQ(banc.Trouve<QLabel>("Label3")->text(), "+");
    EXPECT_EQ(banc.Trouve<QLabel>("Label2")->text(), "_");
    EXPECT_EQ(banc.Trouve<QLabel>("Label5")->text(), "Sec.");
    const auto* skins = banc.Trouve<QComboBox>("CombSkin");
    ASSERT_EQ(skins->count(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(skins->itemText(i), QStringLiteral("Skin %1").arg(i + 1));
    EXPECT_EQ(skins->placeholderText(), "Skins");
    EXPECT_EQ(banc.Trouve<QAction>("MnuPixelView")->text(), "Pixel");
    EXPECT_EQ(banc.Trouve<QAction>("MnuZoomView")->text(), "Zoom");
  }
}

TEST(GivenWords, OfTheColourStandInItsListWhileNoneIsChosen) {
  BancFenetre francais(0);
  EXPECT_EQ(francais.Trouve<QComboBox>("CombCouleur")->placeholderText(), "Couleur");
  BancFenetre anglais(1);
  EXPECT_EQ(anglais.Trouve<QComboBox>("CombCouleur")->placeholderText(), "Color");
}

// Four device pixels a point: the strokes of a caption are wide enough to have pixels of its full colour.
constexpr int kDensite = 4;

QImage Gabarit(const char* famille, int rang) {
  const QString nom = QStringLiteral("%1%2").arg(QLatin1String(famille)).arg(rang);
  const QImage image = ChargeArt(nom, EchelleArt(kDensite));
  const QSize pixels = FacesBoutons::kTaille * kDensite;
  return image.size() == pixels ? image : image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Where a face differs from its template.
QRect Imprime(const QImage& face, const QImage& gabarit) {
  QRect place;
  for (int y = 0; y < face.height(); ++y)
    for (int x = 0; x < face.width(); ++x)
      if (face.pixel(x, y) != gabarit.pixel(x, y)) place |= QRect(x, y, 1, 1);
  return place;
}

QRgb PlusSombre(const QImage& image, const QRect& place) {
  QRgb sombre = qRgb(255, 255, 255);
  for (int y = place.top(); y <= place.bottom(); ++y)
    for (int x = place.left(); x <= place.right(); ++x)
      if (qGray(image.pixel(x, y)) < qGray(sombre)) sombre = image.pixel(x, y);
  return sombre;
}

TEST(ButtonFaces, AreTheThreeTemplatesOfTheirFamilyWithADarkCaptionInTheMiddle) {
  TablesTextes textes;
  textes.Remplit(Langue::kFrancais);
  FacesBoutons faces;
  faces.ChargeBoutons(textes, QStringLiteral("Essai"), kDensite);
  const std::pair<const char*, const FaceBouton*> table[] = {{"PictBlue", &faces.FacesBouton(3)},
                                                             {"PictGrey", &faces.FacesBoutonGris(2)}};
  for (const auto& [famille, face] : table) {
    const QImage* etats[] = {&face->FaceRepos, &face->FaceSurvol, &face->FaceEnfoncee};
    for (int rang = 0; rang < 3; ++rang) {
      SCOPED_TRACE(QStringLiteral("%1%2").arg(QLatin1String(famille)).arg(rang).toStdString());
      const QRect place = Imprime(*etats[rang], Gabarit(famille, rang));
      ASSERT_FALSE(place.isEmpty()) << "no caption";
      EXPECT_GT(place.left(), 0) << "another template";
      EXPECT_LT(place.right(), FacesBoutons::kTaille.width() * kDensite - 1);
      EXPECT_NEAR(place.center().x(), FacesBoutons::kTaille.width() * kDensite / 2.0, 2 * kDensite);
      EXPECT_NEAR(place.center().y(), FacesBoutons::kTaille.height() * kDensite / 2.0, kDensite);
      EXPECT_EQ(PlusSombre(*etats[rang], place), qRgb(0x30, 0x30, 0x30));
    }
  }
}

QColor Milieu(const QImage& image) { return image.pixelColor(image.width() / 2, image.height() / 2); }

TEST(GivenPictures, OfTheLampAreDarkRedLitRedAndGreen) {
  LampeWidget lampe(nullptr, QStringLiteral("ImageLedAlarme"), {});
  const QColor eteinte = Milieu(lampe.grab().toImage());
  lampe.Montre(Lampe::kRougeAllumee);
  const QColor allumee = Milieu(lampe.grab().toImage());
  lampe.Montre(Lampe::kVerte);
  const QColor verte = Milieu(lampe.grab().toImage());
  EXPECT_GT(eteinte.red(), eteinte.green());
  EXPECT_GT(allumee.red(), allumee.green());
  EXPECT_GT(allumee.lightness(), eteinte.lightness());
  EXPECT_GT(verte.green(), verte.red());
}

TEST(GivenPictures, OfTheFlagsAreThoseOfTheirLanguages) {
  const QImage francais = DrapeauLangue(nullptr, Langue::kFrancais, {}).grab().toImage();
  const auto tiers = [&](int i) {
    return francais.pixelColor(francais.width() * (2 * i + 1) / 6, francais.height() / 2);
  };
  EXPECT_GT(tiers(0).blue(), tiers(0).red());
  EXPECT_GT(std::min({tiers(1).red(), tiers(1).green(), tiers(1).blue()}), 200);
  EXPECT_GT(tiers(2).red(), tiers(2).blue());
  DrapeauLangue drapeau(nullptr, Langue::kFrancais, {});
  drapeau.Encadre(true);
  const QImage encadre = drapeau.grab().toImage();
  drapeau.Encadre(false);
  EXPECT_NE(drapeau.grab().toImage(), encadre);
  const QColor croix = Milieu(DrapeauLangue(nullptr, Langue::kAnglais, {}).grab().toImage());
  EXPECT_GT(croix.red(), croix.green() + 60);
}

}  // namespace
}  // namespace vaktor
