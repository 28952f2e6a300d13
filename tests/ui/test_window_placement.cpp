#include <gtest/gtest.h>

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

TEST(WindowPlacement, LargerThanTheScreenItBeginsAtTheCorner) {
  EXPECT_EQ(PlaceFenetre({10, 20, 800, 600}, {200, 180, 398, 243}, {1920, 1080}), QPoint(10, 20));
}

TEST(WindowPlacement, SecondScreenCounts) {
  const QRect ecran(1920, 0, 1920, 1080);
  const QPoint place = PlaceFenetre(ecran, kFenetre1080.translated(1920, 0), {640, 480});
  EXPECT_TRUE(ecran.contains(QRect(place, QSize(640, 480))));
}

}  // namespace
}  // namespace vaktor
