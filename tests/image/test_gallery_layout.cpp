// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of the gallery's window, in twips.
#include <gtest/gtest.h>

#include "image/gallery_layout.h"

namespace vaktor {
namespace {

TEST(GalleryLayout, PhotoStandsInTheMiddleOfTheSpaceRightOfThePanel) {
  const PlacesGalerie places = PlaceGalerie({841, 600}, 106, {320, 240});
  EXPECT_EQ(places.Photo, QPoint(241 + 300 - 160, 300 - 120));
  EXPECT_EQ(places.HauteurPanneau, 600);
  EXPECT_EQ(places.HauteurListe, 600 - 106 - 13) << "200 twips are 13.3 pixels";
}

TEST(GalleryLayout, HalvesGoToTheEvenPixel) {
  EXPECT_EQ(PlaceGalerie({842, 601}, 106, {320, 240}).Photo, QPoint(382, 180));  // 381.5 and 180.5
}

TEST(GalleryLayout, PhotoLargerThanTheSpaceIsCutOnAllSides) {
  EXPECT_EQ(PlaceGalerie({841, 600}, 106, {2000, 1000}).Photo, QPoint(541 - 1000, -200));
}

// Without its sign: below the top of the list the list grows while the window shrinks.
TEST(GalleryLayout, HeightOfTheListLosesItsSign) {
  EXPECT_EQ(PlaceGalerie({841, 119}, 106, {1, 1}).HauteurListe, 0);
  EXPECT_EQ(PlaceGalerie({841, 100}, 106, {1, 1}).HauteurListe, 19);
  EXPECT_EQ(PlaceGalerie({841, 50}, 106, {1, 1}).HauteurListe, 69);
}

TEST(GalleryLayout, WindowFitsThePhotoWithEightHundredTwipsAndThePanel) {
  EXPECT_EQ(TailleAutourPhoto({320, 240}), QSize(241 + 320 + 53, 240 + 53));
  EXPECT_EQ(TailleAutourPhoto({0, 0}), QSize(294, 53));
}

// The outer size in twips is taken for pixels: only the upper left fifteenth of the background shows.
TEST(GalleryLayout, BackgroundIsStretchedToTheTwipsOfTheWindow) {
  EXPECT_EQ(TailleFondEtire({1000, 700}), QSize(15000, 10500));
}

TEST(GalleryLayout, StripsOfThePanelComeEveryFiveHundredPixels) {
  EXPECT_EQ(BandesPanneau(499), QList<int>{0});
  EXPECT_EQ(BandesPanneau(501), QList<int>({0, 500}));
  EXPECT_EQ(BandesPanneau(1200), QList<int>({0, 500, 1000}));
  EXPECT_EQ(BandesPanneau(0), QList<int>{});
}

}  // namespace
}  // namespace vaktor
