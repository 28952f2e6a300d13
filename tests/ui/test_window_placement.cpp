// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include "ui/window/window_centring.h"
#include "ui/window/window_placement.h"

namespace vaktor {
namespace {

constexpr QRect kFenetre1080(761, 418, 398, 243);

TEST(WindowPlacement, MonitorOpensToTheRightWhereThereIsRoom) {
  EXPECT_EQ(PlaceFenetre({0, 0, 1920, 1080}, kFenetre1080, {640, 480}), QPoint(1171, 418));
}

TEST(WindowPlacement, WithoutRoomBesideItTakesTheCornerThatCoversLeast) {
  const QRect ecran(0, 0, 1280, 1024);
  const QRect fenetre(441, 390, 398, 243);
  const QPoint place = PlaceFenetre(ecran, fenetre, {640, 480});
  EXPECT_TRUE(ecran.contains(QRect(place, QSize(640, 480))));
  EXPECT_EQ(place, QPoint(640, 544));
}

TEST(WindowPlacement, RightComesFirstThenLeftThenBelowThenAbove) {
  const QRect ecran(0, 0, 1920, 1080);
  const QSize fenetre(398, 243), autre(640, 480);
  constexpr int kEcart = 12;
  EXPECT_EQ(PlaceFenetre(ecran, {{800, 100}, fenetre}, autre), QPoint(800 + 398 + kEcart, 100));
  EXPECT_EQ(PlaceFenetre(ecran, {{1500, 100}, fenetre}, autre), QPoint(1500 - kEcart - 640, 100));
  const QRect etroit(0, 0, 800, 1080);
  EXPECT_EQ(PlaceFenetre(etroit, {{100, 100}, fenetre}, autre), QPoint(100, 100 + 243 + kEcart));
  EXPECT_EQ(PlaceFenetre(etroit, {{100, 800}, fenetre}, autre), QPoint(100, 800 - kEcart - 480));
}

TEST(WindowPlacement, LargerThanTheScreenItBeginsAtTheCorner) {
  EXPECT_EQ(PlaceFenetre({10, 20, 800, 600}, {200, 180, 398, 243}, {1920, 1080}), QPoint(10, 20));
}

TEST(WindowPlacement, SecondScreenCounts) {
  const QRect ecran(1920, 0, 1920, 1080);
  const QPoint place = PlaceFenetre(ecran, kFenetre1080.translated(1920, 0), {640, 480});
  EXPECT_TRUE(ecran.contains(QRect(place, QSize(640, 480))));
}

TEST(WindowPlacement, MiddleOfTheScreen) {
  EXPECT_EQ(PlaceCentree({0, 0, 1920, 1080}, {400, 280}), QPoint(760, 400));
  EXPECT_EQ(PlaceCentree({1920, 40, 1281, 1001}, {401, 280}), QPoint(2360, 400));
}

// The system of the tests puts a frame around a window when it is shown, as a window manager does.
class Centrage : public testing::Test {
 protected:
  Centrage() { Fenetre.setFixedSize(398, 243); }
  QPoint Attendue() { return PlaceCentree(Fenetre.screen()->availableGeometry(), Fenetre.frameGeometry().size()); }
  void Montre() {
    Fenetre.show();
    QCoreApplication::processEvents();
    ASSERT_FALSE(Fenetre.windowHandle()->frameMargins().isNull());
    ASSERT_NE(Fenetre.frameGeometry().size(), Fenetre.size());
  }

  QWidget Fenetre;
  int Deplacements = 0;
  CentrageFenetre Objet{Fenetre, [this] { ++Deplacements; }};
};

TEST_F(Centrage, FrameIsCounted) {
  Objet.Centre();
  const QPoint sansCadre = Fenetre.pos();
  EXPECT_EQ(sansCadre, PlaceCentree(Fenetre.screen()->availableGeometry(), Fenetre.size()));
  Montre();
  EXPECT_EQ(Fenetre.pos(), Attendue());
  EXPECT_NE(Fenetre.pos(), sansCadre);
  EXPECT_EQ(Deplacements, 1);
}

TEST_F(Centrage, OnceTheFrameIsKnownTheWindowIsTheUsers) {
  Objet.Centre();
  Montre();
  Fenetre.move(5, 7);
  QCoreApplication::processEvents();
  EXPECT_EQ(Fenetre.pos(), QPoint(5, 7));
  EXPECT_EQ(Deplacements, 1);
}

TEST_F(Centrage, WindowThatWasMovedBeforeStaysWhereItIs) {
  Objet.Centre();
  Fenetre.move(5, 7);
  Montre();
  EXPECT_EQ(Fenetre.pos(), QPoint(5, 7));
  EXPECT_EQ(Deplacements, 0);
}

}  // namespace
}  // namespace vaktor
