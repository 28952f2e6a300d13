// SPDX-License-Identifier: GPL-3.0-or-later
// What the engine shows reaches the controls, in words, colours and lamps.
#include <gtest/gtest.h>

#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

QLabel* Libelle(BancFenetre& banc) { return banc.Trouve<QLabel>("LblDebugAlarm"); }
QColor Couleur(const QLabel* etiquette) { return etiquette->palette().color(QPalette::WindowText); }

// Alternates two pictures, so that every sample of a frame has changed.
void FaitBouger(BancFenetre& banc) {
  static constexpr QRgb kTeintes[] = {qRgb(0, 0, 0), qRgb(255, 255, 255)};
  auto rang = std::make_shared<int>(0);
  banc.Pilote.Suivante = [rang] { return BancFenetre::ImageUnie(64, 48, kTeintes[++*rang % 2]); };
}

TEST(SurveillanceView, MotionShowsIntrusionInPureRedAndStillnessTheStateInGrey) {
  BancFenetre banc;
  banc.Clique("Bouton(0)");
  FaitBouger(banc);
  banc.Tic();
  banc.Tic();
  EXPECT_EQ(Libelle(banc)->text(), QStringLiteral("Intrusion"));
  EXPECT_EQ(Couleur(Libelle(banc)), QColor(255, 0, 0));
  banc.Pilote.Suivante = nullptr;
  banc.Tic();
  banc.Tic();
  EXPECT_EQ(Libelle(banc)->text(), QStringLiteral("Alarm: Not active"));
  EXPECT_EQ(Couleur(Libelle(banc)), QColor(64, 64, 64));
}

TEST(SurveillanceView, CountersShowTimeAndPointsWithTheirTrailingBlank) {
  BancFenetre banc;
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&banc.Fenetre));
  banc.Vue.MontreCompteurs(31, 207);
  EXPECT_EQ(banc.Trouve<QLabel>("LabelTemoin(0)")->text(), QStringLiteral("31 ms "));
  EXPECT_EQ(banc.Trouve<QLabel>("LabelTemoin(1)")->text(), QStringLiteral("207 Pts "));
}

TEST(SurveillanceView, CountersAreWrittenWhenTheWindowComesOntoTheScreen) {
  BancFenetre banc;
  banc.Vue.MontreCompteurs(31, 207);
  EXPECT_EQ(banc.Trouve<QLabel>("LabelTemoin(0)")->text(), QStringLiteral("0 ms ")) << "nobody sees it yet";
  banc.Vue.MontreCompteurs(32, 208);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&banc.Fenetre));
  EXPECT_EQ(banc.Trouve<QLabel>("LabelTemoin(0)")->text(), QStringLiteral("32 ms "));
  EXPECT_EQ(banc.Trouve<QLabel>("LabelTemoin(1)")->text(), QStringLiteral("208 Pts "));
}

TEST(SurveillanceView, CountersStartAtZero) {
  BancFenetre banc;
  EXPECT_EQ(banc.Trouve<QLabel>("LabelTemoin(0)")->text(), QStringLiteral("0 ms "));
  EXPECT_EQ(banc.Trouve<QLabel>("LabelTemoin(1)")->text(), QStringLiteral("0 Pts "));
}

TEST(SurveillanceView, LampsFollowTheEngine) {
  BancFenetre banc;
  const LampeWidget& lampe = *banc.Fenetre.Bandeau().ImageLedSurveill;
  EXPECT_EQ(lampe.Etat(), Lampe::kRouge);
  banc.Vue.MontreLampeSurveillance(Lampe::kVerte);
  EXPECT_EQ(lampe.Etat(), Lampe::kVerte);
  banc.Vue.MontreLampeSurveillance(Lampe::kRougeAllumee);
  EXPECT_EQ(lampe.Etat(), Lampe::kRougeAllumee);
  EXPECT_EQ(banc.Fenetre.Bandeau().ImageLedAlarme->Etat(), Lampe::kRouge) << "the other one stays";
}

TEST(SurveillanceView, StopOfTheCameraTellsBothStatusLines) {
  BancFenetre banc;
  banc.Clique("Bouton(0)");
  banc.Trouve<QLabel>("LblDebugftp")->setText(QStringLiteral("something"));
  banc.Clique("Bouton(0)");
  EXPECT_EQ(banc.Trouve<QLabel>("LblDebugftp")->text(), QStringLiteral("Monitoring: Not active"));
  EXPECT_EQ(Libelle(banc)->text(), QStringLiteral("Alarm: Not active"));
}

TEST(SurveillanceView, ButtonsOfAlarmAndLiveAreEnabledByAStartOfTheCamera) {
  BancFenetre banc;
  banc.Pilote.Presente = false;
  banc.Clique("Bouton(1)");
  EXPECT_FALSE(banc.Trouve("Bouton(2)")->isEnabled()) << "a failed start through the alarm leaves it disabled";
  banc.Pilote.Presente = true;
  banc.Clique("Bouton(0)");
  EXPECT_TRUE(banc.Trouve("Bouton(2)")->isEnabled());
  EXPECT_TRUE(banc.Trouve("Bouton(1)")->isEnabled());
}

TEST(SurveillanceView, BarShowsTheCountUpToItsMaximum) {
  BancFenetre banc;
  auto* barre = banc.Moniteur.findChild<QProgressBar*>(QStringLiteral("ProgressBar1"));
  EXPECT_EQ(barre->maximum(), 900);
  banc.Vue.MontreBarre(250);
  EXPECT_EQ(barre->value(), 250);
}

TEST(SurveillanceView, EnlargedViewRunsOneTickBehindAndKeepsTheOutlines) {
  BancFenetre banc;
  banc.Clique("Bouton(0)");
  banc.Tic();
  const QImage premiere = banc.Engin.Surface().Image();
  const int contours = banc.Engin.Surface().NombreContours();
  EXPECT_GT(contours, 0);
  banc.Pilote.Image = BancFenetre::ImageUnie(64, 48, qRgb(200, 0, 0));
  banc.Tic();
  ASSERT_NE(banc.PleinEcran.Forme(), nullptr) << "filled whether it shows or not";
  EXPECT_EQ(banc.PleinEcran.Forme()->Copie().Image.Entiere().constBits(), premiere.constBits()) << "taken by reference";
  EXPECT_EQ(static_cast<int>(banc.PleinEcran.Forme()->Copie().Contours.size()), contours);
}

TEST(SurveillanceView, EnlargedViewShowsAllRectanglesOfALongDragToo) {
  BancFenetre banc;
  banc.Clique("Bouton(0)");
  banc.Tic();
  banc.Engin.Surface().Dessine({2, 3, 6, 8});
  for (int i = 0; i < SurfaceImage::kContoursMax; ++i) banc.Engin.Surface().Dessine({30, 30, 40, 40});
  banc.Tic();
  QImage vue(64, 48, QImage::Format_RGB32);
  QPainter peintre(&vue);
  PeintSurface(peintre, banc.PleinEcran.Forme()->Copie());
  EXPECT_EQ(vue.pixel(5, 7), kCouleurContour) << "the first of them";
  EXPECT_EQ(vue.pixel(39, 39), kCouleurContour) << "the last";
  EXPECT_EQ(vue.pixel(6, 8), qRgb(10, 20, 30));
}

TEST(SurveillanceView, EnlargedViewThatWasClosedIsLoadedAgainByTheNextTick) {
  BancFenetre banc;
  banc.Clique("Bouton(0)");
  banc.Fenetre.CheckPEcran().setChecked(true);
  banc.PleinEcran.Forme()->close();
  EXPECT_EQ(banc.PleinEcran.Forme(), nullptr);
  banc.Tic();
  ASSERT_NE(banc.PleinEcran.Forme(), nullptr);
  EXPECT_FALSE(banc.PleinEcran.Forme()->isVisible());
}

TEST(SurveillanceView, EnlargedViewScalesPictureAndOutlinesOverTheWholeWindow) {
  SurfaceImage surface;
  surface.Pose(BancFenetre::ImageUnie(40, 20, qRgb(1, 2, 3)));
  surface.Dessine({0, 0, 40, 20});
  WebcamPecran forme;
  forme.resize(400, 100);
  EXPECT_EQ(forme.grab().toImage().pixel(200, 50), qRgb(0, 0, 0)) << "black before the first copy";
  forme.CopieDepuis(surface);
  const QImage peinte = forme.grab().toImage();
  EXPECT_EQ(peinte.pixel(200, 50), qRgb(1, 2, 3));
  EXPECT_EQ(peinte.pixel(5, 50), qRgb(192, 192, 255));
  EXPECT_EQ(peinte.pixel(395, 50), qRgb(192, 192, 255));
  EXPECT_EQ(peinte.pixel(200, 97), qRgb(192, 192, 255));
}

TEST(SurveillanceView, FullScreenEntryShowsTheEnlargedViewAndTicksNoBox) {
  BancFenetre banc;
  banc.Moniteur.findChild<QAction*>(QStringLiteral("MnuFullScreen"))->trigger();
  ASSERT_NE(banc.PleinEcran.Forme(), nullptr);
  EXPECT_TRUE(banc.PleinEcran.Forme()->isVisible());
  EXPECT_FALSE(banc.Fenetre.CheckPEcran().isChecked());
}

TEST(SurveillanceView, LostSignalIsWordsOverThePictureInTheCurrentLanguage) {
  BancFenetre banc;
  auto* vue = banc.Moniteur.findChild<VueCadre*>(QStringLiteral("Picture1"));
  banc.Clique("Bouton(0)");
  banc.Pilote.Perdu = true;
  banc.Tic();
  EXPECT_EQ(vue->Avis(), QStringLiteral("Signal lost"));
  banc.Reglages.LangueCourante = 0;
  banc.Tic();
  EXPECT_EQ(vue->Avis(), QStringLiteral("Signal perdu"));
  EXPECT_EQ(banc.Engin.Surface().Image(), banc.Pilote.Image) << "never in it";
  banc.Pilote.Perdu = false;
  banc.Tic();
  EXPECT_TRUE(vue->Avis().isEmpty());
}

TEST(SurveillanceView, DetectionThatHasStoppedIsWordsOverThePictureToo) {
  BancFenetre banc;
  auto* vue = banc.Moniteur.findChild<VueCadre*>(QStringLiteral("Picture1"));
  banc.Clique("Bouton(0)");
  banc.Reglages.IntervalleFtp = QStringLiteral("ten");
  for (int i = 0; i < 40; ++i) banc.Tic();
  EXPECT_EQ(vue->Avis(), QStringLiteral("Detection stopped"));
  banc.Reglages.LangueCourante = 0;
  banc.Tic();
  EXPECT_EQ(vue->Avis(), QStringLiteral("D\u00e9tection arr\u00eat\u00e9e"));
}

}  // namespace
}  // namespace vaktor
