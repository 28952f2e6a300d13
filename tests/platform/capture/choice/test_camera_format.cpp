// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "platform/capture/choice/camera_format.h"

namespace vaktor {
namespace {

FormatCamera F(const char* codage, int largeur, int hauteur, int num, int den = 1) {
  return {QString::fromLatin1(codage), largeur, hauteur, num, den};
}

TEST(FormatTropGrand, CountsOneSampleForNinePixelsWithBothEdges) {
  // Columns 0, 3 .. up to the width itself: 3 pixels give two. 333,334 samples fit, one row more does not.
  EXPECT_FALSE(FormatTropGrand(F("YUYV", 3 * 166'666 + 2, 3, 30)));
  EXPECT_TRUE(FormatTropGrand(F("YUYV", 3 * 166'667, 3, 30)));
  EXPECT_TRUE(FormatTropGrand(F("YUYV", 1998, 1500, 30))) << "a click on the monitor would stop the detection";
}

TEST(FormatTropGrand, TheUsualSizes) {
  EXPECT_FALSE(FormatTropGrand(F("MJPG", 640, 480, 30)));
  EXPECT_FALSE(FormatTropGrand(F("MJPG", 1920, 1080, 30)));
  EXPECT_TRUE(FormatTropGrand(F("MJPG", 2048, 1536, 30)));
  EXPECT_TRUE(FormatTropGrand(F("MJPG", 3840, 2160, 30)));
  EXPECT_FALSE(FormatTropGrand(F("", 0, 0, 0)));
  EXPECT_TRUE(FormatTropGrand(F("MJPG", 32'000, 32'000, 1)));
}

TEST(PremierFormat, TakesTheUsualSizeWhereItIsFastEnough) {
  EXPECT_EQ(ChoisitPremierFormat({F("MJPG", 1920, 1080, 60), F("MJPG", 640, 480, 30), F("MJPG", 320, 240, 30)}),
            F("MJPG", 640, 480, 30));
}

TEST(PremierFormat, TwentyFiveIsFastEnoughAndALittleLessIsNot) {
  EXPECT_EQ(ChoisitPremierFormat({F("YUYV", 640, 480, 25), F("YUYV", 320, 240, 30)}), F("YUYV", 640, 480, 25));
  EXPECT_EQ(ChoisitPremierFormat({F("YUYV", 640, 480, 24'999, 1000), F("YUYV", 320, 240, 30)}),
            F("YUYV", 320, 240, 30));
}

TEST(PremierFormat, TakesTheNearestCommonSizeElse) {
  EXPECT_EQ(ChoisitPremierFormat(
                {F("MJPG", 1280, 720, 30), F("MJPG", 800, 600, 30), F("MJPG", 320, 240, 30), F("MJPG", 640, 480, 15)}),
            F("MJPG", 800, 600, 30));
  // 656x488 is nearer, but no common size.
  EXPECT_EQ(ChoisitPremierFormat({F("MJPG", 656, 488, 30), F("MJPG", 800, 600, 30)}), F("MJPG", 800, 600, 30));
}

TEST(PremierFormat, TakesTheFastestElseThatIsNotTooLarge) {
  EXPECT_EQ(ChoisitPremierFormat({F("MJPG", 3840, 2160, 60), F("YUYV", 1280, 720, 10), F("YUYV", 1024, 768, 15)}),
            F("YUYV", 1024, 768, 15));
  EXPECT_EQ(ChoisitPremierFormat({F("YUYV", 100, 100, 30), F("YUYV", 200, 200, 60)}), F("YUYV", 200, 200, 60));
}

TEST(PremierFormat, ADeviceThatTellsNoRatesGetsTheNearestSize) {
  EXPECT_EQ(ChoisitPremierFormat({F("YUYV", 1920, 1080, 0), F("YUYV", 640, 480, 0), F("YUYV", 160, 120, 0)}),
            F("YUYV", 640, 480, 0));
}

TEST(PremierFormat, AtOneSizeTheCheapestCodingWins) {
  EXPECT_EQ(ChoisitPremierFormat({F("H264", 640, 480, 30), F("MJPG", 640, 480, 30), F("YUYV", 640, 480, 30)}),
            F("YUYV", 640, 480, 30));
  EXPECT_EQ(ChoisitPremierFormat({F("YUYV", 640, 480, 15), F("H264", 640, 480, 30), F("MJPG", 640, 480, 30)}),
            F("MJPG", 640, 480, 30));
}

TEST(PremierFormat, TheRateNearestToWhatTheTicksUseWins) {
  EXPECT_EQ(ChoisitPremierFormat({F("YUYV", 640, 480, 120), F("YUYV", 640, 480, 30), F("YUYV", 640, 480, 25)}),
            F("YUYV", 640, 480, 30));
}

TEST(PremierFormat, UnknownCodingsOnlyWhereThereIsNothingElse) {
  EXPECT_EQ(ChoisitPremierFormat({F("BA81", 640, 480, 30), F("YUYV", 320, 240, 5)}), F("YUYV", 320, 240, 5));
  EXPECT_EQ(ChoisitPremierFormat({F("BA81", 1280, 720, 30), F("BA81", 640, 480, 30)}), F("BA81", 640, 480, 30));
  // The only known coding is too large: the unknown one is the better try.
  EXPECT_EQ(ChoisitPremierFormat({F("YUYV", 3840, 2160, 30), F("BA81", 640, 480, 30)}), F("BA81", 640, 480, 30));
}

TEST(PremierFormat, WhereAllAreTooLargeTheSmallestIsTakenThatSomebodyUnderstands) {
  const QList<FormatCamera> grands = {F("MJPG", 3840, 2160, 30), F("MJPG", 2592, 1944, 15), F("MJPG", 2592, 1944, 30),
                                      F("BA81", 2048, 1536, 30)};
  EXPECT_EQ(ChoisitPremierFormat(grands), F("MJPG", 2592, 1944, 30));
  EXPECT_EQ(ChoisitPremierFormat(grands.mid(3)), F("BA81", 2048, 1536, 30));
  EXPECT_EQ(ChoisitPremierFormat({}), FormatCamera());
}

// A camera whose 640x480 is broken, and which would give its largest picture when left to itself.
TEST(PremiersFormats, NoneIsTooLargeWhileOneFits) {
  const QList<FormatCamera> offerts = {F("MJPG", 3840, 2160, 30), F("MJPG", 640, 480, 30), F("YUYV", 640, 480, 30),
                                       F("YUYV", 320, 240, 30),   F("YUYV", 640, 480, 15), F("BA81", 160, 120, 30)};
  const QList<FormatCamera> attendus = {F("YUYV", 640, 480, 30), F("MJPG", 640, 480, 30), F("YUYV", 320, 240, 30)};
  EXPECT_EQ(ListePremiersFormats(offerts), attendus);
}

TEST(PremiersFormats, WhereAllFitTheDeviceMayChooseAtTheEnd) {
  const QList<FormatCamera> attendus = {F("YUYV", 640, 480, 30), FormatCamera()};
  EXPECT_EQ(ListePremiersFormats({F("MJPG", 1920, 1080, 30), F("YUYV", 640, 480, 30)}), attendus);
  EXPECT_EQ(ListePremiersFormats({}), QList<FormatCamera>{FormatCamera()}) << "nothing is known of it";
}

TEST(PremiersFormats, WhereAllAreTooLargeTheSmallestComesFirst) {
  const QList<FormatCamera> grands = {F("MJPG", 3840, 2160, 30), F("MJPG", 2592, 1944, 30), F("YUYV", 3840, 2160, 5)};
  const QList<FormatCamera> attendus = {F("MJPG", 2592, 1944, 30), F("YUYV", 3840, 2160, 5)};
  EXPECT_EQ(ListePremiersFormats(grands), attendus);
}

TEST(PremiersFormats, AreFew) {
  QList<FormatCamera> offerts = {F("MJPG", 3840, 2160, 30)};
  for (int i = 1; i < 60; ++i) offerts.append(F("MJPG", 16 * i, 12 * i, 30));
  EXPECT_EQ(ListePremiersFormats(offerts).size(), 4);
}

TEST(SontTousTropGrands, OneThatFitsIsEnough) {
  EXPECT_TRUE(SontTousTropGrands({F("MJPG", 3840, 2160, 30), F("MJPG", 2592, 1944, 30)}));
  EXPECT_FALSE(SontTousTropGrands({F("MJPG", 3840, 2160, 30), F("MJPG", 640, 480, 30)}));
  EXPECT_FALSE(SontTousTropGrands({})) << "a device that tells nothing is told of in its own words";
}

}  // namespace
}  // namespace vaktor
