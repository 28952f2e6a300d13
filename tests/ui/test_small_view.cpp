// SPDX-License-Identifier: GPL-3.0-or-later
// The small view Picture2: what it paints, and its menu.
#include <gtest/gtest.h>

#include <QMenu>
#include <QPainter>

#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

constexpr QRgb kRouge = qRgb(255, 0, 0), kBleu = qRgb(0, 0, 255), kNoir = qRgb(0, 0, 0);

// Left half red, right half blue.
QImage DeuxMoities(int largeur, int hauteur) {
  QImage image = BancFenetre::ImageUnie(largeur, hauteur, kRouge);
  QPainter(&image).fillRect(largeur / 2, 0, largeur - largeur / 2, hauteur, QColor::fromRgb(kBleu));
  return image;
}

struct Vue {
  Vue() : Petite(nullptr, QStringLiteral("Picture2"), {0, 0, 127, 109}) {}
  QRgb Pixel(int x, int y) { return Petite.grab().toImage().pixel(x, y); }
  SurfaceImage Surface;
  VueReduite Petite;
};

TEST(SmallView, IsBlackAtStart) {
  Vue vue;
  EXPECT_EQ(vue.Pixel(60, 50), kNoir);
}

TEST(SmallView, ZoomStretchesThePartOverTheWholeView) {
  Vue vue;
  vue.Surface.Pose(DeuxMoities(40, 30));
  vue.Petite.MontreZoom(vue.Surface, QRect(15, 10, 10, 10));
  EXPECT_EQ(vue.Pixel(0, 0), kRouge);
  EXPECT_EQ(vue.Pixel(62, 108), kRouge);
  EXPECT_EQ(vue.Pixel(65, 0), kBleu);
  EXPECT_EQ(vue.Pixel(126, 108), kBleu);
}

TEST(SmallView, ZoomOfNegativeWidthMirrors) {
  Vue vue;
  vue.Surface.Pose(DeuxMoities(40, 30));
  // The part runs from column 24 leftwards.
  vue.Petite.MontreZoom(vue.Surface, QRect(24, 10, -10, 10));
  EXPECT_EQ(vue.Pixel(1, 50), kBleu);
  EXPECT_EQ(vue.Pixel(125, 50), kRouge);
}

TEST(SmallView, ZoomOfZeroWidthOrHeightDrawsNothing) {
  Vue vue;
  vue.Surface.Pose(DeuxMoities(40, 30));
  vue.Petite.MontreZoom(vue.Surface, QRect(0, 0, 10, 10));
  vue.Petite.MontreZoom(vue.Surface, QRect(25, 10, 0, 10));
  vue.Petite.MontreZoom(vue.Surface, QRect(25, 10, 10, 0));
  EXPECT_EQ(vue.Pixel(60, 50), kRouge) << "what was there stays";
}

TEST(SmallView, ZoomShowsTheOutlinesOfTheSurface) {
  Vue vue;
  vue.Surface.Pose(BancFenetre::ImageUnie(40, 30, kRouge));
  vue.Surface.Dessine({10, 10, 20, 20});
  vue.Petite.MontreZoom(vue.Surface, QRect(10, 10, 10, 10));
  EXPECT_EQ(vue.Pixel(3, 50), qRgb(192, 192, 255));
  EXPECT_EQ(vue.Pixel(60, 50), kRouge);
}

TEST(SmallView, WhatLiesOutsideTheFrameIsBlack) {
  Vue vue;
  vue.Surface.Pose(BancFenetre::ImageUnie(40, 30, kRouge));
  vue.Petite.MontreZoom(vue.Surface, QRect(35, 10, 10, 10));
  EXPECT_EQ(vue.Pixel(30, 50), kRouge);
  EXPECT_EQ(vue.Pixel(100, 50), kNoir);
}

TEST(SmallView, PixelViewIsPaintedFromTheEnginesOwnPicture) {
  Vue vue;
  QImage pixels = BancFenetre::ImageUnie(127, 109, kNoir);
  vue.Petite.MontreImage(pixels);
  EXPECT_EQ(vue.Pixel(5, 5), kNoir);
  pixels.setPixel(5, 5, kBleu);
  EXPECT_EQ(vue.Pixel(5, 5), kBleu) << "by reference, not a copy";
  vue.Petite.Noircit();
  EXPECT_EQ(vue.Pixel(5, 5), kNoir);
}

TEST(SmallView, ZoomTakesThePlaceOfThePixelsAndTheyThatOfTheZoom) {
  Vue vue;
  const QImage pixels = BancFenetre::ImageUnie(127, 109, kNoir);
  vue.Petite.MontreImage(pixels);
  vue.Surface.Pose(BancFenetre::ImageUnie(40, 30, kRouge));
  vue.Petite.MontreZoom(vue.Surface, QRect(10, 10, 10, 10));
  EXPECT_EQ(vue.Pixel(60, 50), kRouge);
  vue.Petite.MontreImage(pixels);
  EXPECT_EQ(vue.Pixel(60, 50), kNoir);
}

QMenu* Menu(BancFenetre& banc) { return banc.Fenetre.findChild<QMenu*>(QStringLiteral("MnuDisplay")); }
QAction* Entree(BancFenetre& banc, const char* nom) { return banc.Fenetre.findChild<QAction*>(QLatin1String(nom)); }

TEST(SmallView, MenuOpensWithTheRightButtonOnly) {
  BancFenetre banc;
  QTest::mousePress(banc.Trouve("Picture2"), Qt::LeftButton);
  EXPECT_FALSE(Menu(banc)->isVisible());
  QTest::mousePress(banc.Trouve("Picture2"), Qt::RightButton, {}, QPoint(20, 30));
  EXPECT_TRUE(Menu(banc)->isVisible());
  EXPECT_EQ(Menu(banc)->title(), QStringLiteral("Full screen"));
  EXPECT_EQ(Menu(banc)->pos(), banc.Trouve("Picture2")->mapToGlobal(QPoint(20, 30)));
  Menu(banc)->close();
}

TEST(SmallView, MenuChoosesTheModeAndTicksIt) {
  BancFenetre banc;
  EXPECT_TRUE(Entree(banc, "MnuZoomView")->isChecked());
  EXPECT_FALSE(Entree(banc, "MnuPixelView")->isChecked());
  Entree(banc, "MnuPixelView")->trigger();
  EXPECT_FALSE(banc.Engin.Detection().ModeZoom);
  EXPECT_FALSE(Entree(banc, "MnuZoomView")->isChecked());
  EXPECT_TRUE(Entree(banc, "MnuPixelView")->isChecked());
  Entree(banc, "MnuPixelView")->trigger();
  EXPECT_TRUE(Entree(banc, "MnuPixelView")->isChecked()) << "choosing the ticked entry leaves it ticked";
  Entree(banc, "MnuZoomView")->trigger();
  EXPECT_TRUE(banc.Engin.Detection().ModeZoom);
  EXPECT_TRUE(Entree(banc, "MnuZoomView")->isChecked());
}

TEST(SmallView, ChoosingAModeDoesNotClearTheViewTheNextFrameDoes) {
  BancFenetre banc;
  banc.Clique("Bouton(0)");
  banc.Tic();
  auto& vue = *banc.Fenetre.Moniteur().Picture2;
  vue.MontreZoom(banc.Engin.Surface(), QRect(0, 0, 10, 10));
  Entree(banc, "MnuPixelView")->trigger();
  EXPECT_NE(vue.grab().toImage().pixel(60, 50), kNoir);
  banc.Tic();
  EXPECT_EQ(vue.grab().toImage().pixel(60, 50), kNoir);
}

}  // namespace
}  // namespace vaktor
