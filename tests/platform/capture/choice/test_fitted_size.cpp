// SPDX-License-Identifier: GPL-3.0-or-later
// In which size pictures come to the detection that are more than it can hold.
#include "platform/capture/choice/fitted_size.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vaktor {
namespace {

TEST(TailleRetenue, APictureThatTheDetectionCanHoldStaysAsItIs) {
  for (const QSize taille : {QSize(), QSize(0, 480), QSize(1, 1), QSize(641, 479), QSize(1920, 1080), QSize(2304, 1296),
                             QSize(3 * 166'666 + 2, 3)}) {
    EXPECT_FALSE(EstTropGrande(taille));
    EXPECT_EQ(TailleRetenue(taille), taille);
  }
}

TEST(TailleRetenue, OfTheUsualLargeSizes) {
  EXPECT_EQ(TailleRetenue(QSize(3840, 2160)), QSize(1920, 1080));
  EXPECT_EQ(TailleRetenue(QSize(2560, 1440)), QSize(1920, 1080));
  EXPECT_EQ(TailleRetenue(QSize(2592, 1944)), QSize(1944, 1458));
  EXPECT_EQ(TailleRetenue(QSize(2688, 1520)), QSize(2016, 1140));
  EXPECT_EQ(TailleRetenue(QSize(1440, 2560)), QSize(1080, 1920)) << "upright";
}

TEST(TailleRetenue, WhereTheQuickRatiosDoNotFitIsTheLargestThatDoes) {
  EXPECT_EQ(TailleRetenue(QSize(2880, 1620)), QSize(2304, 1296)) << "three quarters are 1215 rows";
  EXPECT_EQ(TailleRetenue(QSize(2562, 1442)), QSize(2306, 1298)) << "three quarters are no whole number";
  EXPECT_EQ(TailleRetenue(QSize(4000, 3000)), QSize(1994, 1496)) << "of a half the edge is one sample too many";
  EXPECT_EQ(TailleRetenue(QSize(3200, 1800)), QSize(2304, 1296)) << "of a half, less than half the pixels would stay";
  EXPECT_EQ(TailleRetenue(QSize(8000, 8000)), QSize(1730, 1730));
}

// Of any size: even, of the same shape, fit for the detection; and no larger one would be, but for the quick ratios.
TEST(TailleRetenue, HasEvenSidesAndTheSameShape) {
  for (const TailleCourante& connue : TaillesCourantes()) {
    for (const int ecart : {0, 1, 7, 1801}) {
      const QSize taille(connue.Largeur + ecart, connue.Hauteur + 2 * ecart);
      if (!EstTropGrande(taille)) continue;
      const QSize retenue = TailleRetenue(taille);
      const double forme = double(taille.width()) / taille.height();
      EXPECT_FALSE(EstTropGrande(retenue)) << taille.width();
      EXPECT_EQ(retenue.width() % 2 + retenue.height() % 2, 0) << taille.width();
      EXPECT_LE(std::abs(retenue.width() - retenue.height() * forme), 1.0) << taille.width();
      const bool rapide = retenue * 2 == taille ||
                          (4 * retenue.width() == 3 * taille.width() && 4 * retenue.height() == 3 * taille.height());
      const int plusHaute = retenue.height() + 2;
      EXPECT_TRUE(rapide || EstTropGrande({2 * qRound(plusHaute * forme / 2), plusHaute})) << taille.width();
    }
  }
}

TEST(TailleRetenue, StripsOfAPictureAreMadeSmallerToo) {
  EXPECT_EQ(TailleRetenue(QSize(600'001, 3)), QSize(400'000, 2));
  EXPECT_EQ(TailleRetenue(QSize(3, 600'000)), QSize(2, 600'000)) << "one column of samples less";
  for (const QSize fil : {QSize(3'000'000, 1), QSize(1, 3'000'000)}) {
    EXPECT_EQ(TailleRetenue(fil), fil) << "nothing helps; the detection tells of it";
  }
}

TEST(TailleRetenue, OfAFormatIsThatOfItsPictures) {
  for (const char* codage : {"MJPG", "H264", ""}) {
    const FormatCamera format{QLatin1String(codage), 3840, 2160, 30, 1};
    EXPECT_EQ(TailleRetenue(format), QSize(1920, 1080));
    EXPECT_TRUE(EstReduit(format));
  }
  EXPECT_FALSE(EstReduit({"MJPG", 1920, 1080, 30, 1}));
  EXPECT_FALSE(EstReduit({}));
}

}  // namespace
}  // namespace vaktor
