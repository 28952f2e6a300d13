// SPDX-License-Identifier: GPL-3.0-or-later
// The sensitivity gauge under the mouse and on the screen.
#include <gtest/gtest.h>

#include <QMouseEvent>

#include "engine/sensitivity_gauge.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

constexpr double kParPixel = 7000000.0 / 360.0;

void Envoie(QWidget* widget, QEvent::Type type, QPointF position, Qt::MouseButton bouton, Qt::MouseButtons tenus) {
  QMouseEvent evenement(type, position, widget->mapToGlobal(position), bouton, tenus, Qt::NoModifier);
  QCoreApplication::sendEvent(widget, &evenement);
}

QRgb Pixel(BancFenetre& banc, int x) { return banc.Trouve("PictSeuil")->grab().toImage().pixel(x, 3); }

TEST(Gauge, PressMoveAndReleaseOfTheLeftButtonSetTheTolerance) {
  BancFenetre banc;
  QWidget* jauge = banc.Trouve("PictSeuil");
  Envoie(jauge, QEvent::MouseButtonPress, {90, 3}, Qt::LeftButton, Qt::LeftButton);
  EXPECT_EQ(banc.Reglages.SeuilDetection, 1750000);
  Envoie(jauge, QEvent::MouseMove, {180, 3}, Qt::NoButton, Qt::LeftButton);
  EXPECT_EQ(banc.Reglages.SeuilDetection, 3500000);
  Envoie(jauge, QEvent::MouseButtonRelease, {270, 3}, Qt::LeftButton, Qt::NoButton);
  EXPECT_EQ(banc.Reglages.SeuilDetection, 5250000);
  EXPECT_TRUE(banc.Reglages.ParametresModifies);
}

TEST(Gauge, RightButtonAndTwoButtonsChangeNothing) {
  BancFenetre banc;
  banc.Reglages.SeuilDetection = 1234;
  QWidget* jauge = banc.Trouve("PictSeuil");
  Envoie(jauge, QEvent::MouseButtonPress, {90, 3}, Qt::RightButton, Qt::RightButton);
  Envoie(jauge, QEvent::MouseMove, {120, 3}, Qt::NoButton, Qt::RightButton);
  Envoie(jauge, QEvent::MouseButtonRelease, {120, 3}, Qt::RightButton, Qt::NoButton);
  Envoie(jauge, QEvent::MouseMove, {120, 3}, Qt::NoButton, Qt::LeftButton | Qt::RightButton);
  Envoie(jauge, QEvent::MouseMove, {120, 3}, Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(banc.Reglages.SeuilDetection, 1234);
}

TEST(Gauge, DragBeyondTheEndsIsClamped) {
  BancFenetre banc;
  QWidget* jauge = banc.Trouve("PictSeuil");
  Envoie(jauge, QEvent::MouseMove, {-40, 3}, Qt::NoButton, Qt::LeftButton);
  EXPECT_EQ(banc.Reglages.SeuilDetection, 1);
  Envoie(jauge, QEvent::MouseMove, {500, 3}, Qt::NoButton, Qt::LeftButton);
  EXPECT_EQ(banc.Reglages.SeuilDetection, 7000000);
}

TEST(Gauge, DoubleClickRestartsTheSearchAndIsNoPressOfItsOwn) {
  BancFenetre banc;
  banc.Reglages.SeuilDetection = 1234;
  QWidget* jauge = banc.Trouve("PictSeuil");
  EXPECT_FALSE(banc.Temps.Trouve(QStringLiteral("TimerSeuil"))->EstActive());
  Envoie(jauge, QEvent::MouseButtonDblClick, {90, 3}, Qt::LeftButton, Qt::LeftButton);
  EXPECT_EQ(banc.Reglages.SeuilDetection, 1234);
  EXPECT_TRUE(banc.Temps.Trouve(QStringLiteral("TimerSeuil"))->EstActive());
}

TEST(Gauge, BarIsGreenBelowSixMillionAndRedFromThereUpWithABlackMarker) {
  BancFenetre banc;
  banc.Engin.Jauge().DessineSeuil(3500000);
  EXPECT_EQ(Pixel(banc, 0), qRgb(192, 255, 192));
  EXPECT_EQ(Pixel(banc, 179), qRgb(192, 255, 192));
  EXPECT_EQ(Pixel(banc, 180), qRgb(0, 0, 0));
  EXPECT_EQ(Pixel(banc, 181), qRgb(192, 192, 192));
  banc.Engin.Jauge().DessineSeuil(5999999);
  EXPECT_EQ(Pixel(banc, 100), qRgb(192, 255, 192));
  banc.Engin.Jauge().DessineSeuil(6000000);
  EXPECT_EQ(Pixel(banc, 100), qRgb(255, 128, 128));
}

TEST(Gauge, BarIsDrawnFromTheValueAsPassedAndCutByTheEdge) {
  BancFenetre banc;
  banc.Engin.Jauge().DessineSeuil(9000000);
  EXPECT_EQ(Pixel(banc, 359), qRgb(255, 128, 128)) << "the marker lies beyond the edge";
  banc.Engin.Jauge().DessineSeuil(-500000);
  EXPECT_EQ(Pixel(banc, 0), qRgb(192, 192, 192)) << "so it does here";
  EXPECT_EQ(banc.Reglages.SeuilDetection, 1);
}

TEST(Gauge, PositionIsRoundedToAWholeTolerance) {
  BancFenetre banc;
  Envoie(banc.Trouve("PictSeuil"), QEvent::MouseButtonPress, {1, 3}, Qt::LeftButton, Qt::LeftButton);
  EXPECT_EQ(banc.Reglages.SeuilDetection, qRound(kParPixel));
}

}  // namespace
}  // namespace vaktor
