// SPDX-License-Identifier: GPL-3.0-or-later
// The drawn stamp: needs fonts, so it runs with windows at hand.
#include <gtest/gtest.h>

#include "companions/live_stamp.h"

namespace vaktor::essai {
namespace {

int CompteClairs(const QImage& image) {
  int clairs = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (qGray(image.pixel(x, y)) > 160) ++clairs;
  return clairs;
}

TEST(DessinTimbre, PrintsOnItsOwnBackground) {
  DessinTimbre dessin;
  const QImage vide = dessin.DessineTimbre(QString());
  EXPECT_EQ(vide.size(), QSize(68, 18));
  EXPECT_EQ(vide.format(), QImage::Format_RGB32);
  EXPECT_EQ(CompteClairs(vide), 0);
  EXPECT_GT(CompteClairs(dessin.DessineTimbre("09h05m03")), 60);
}

TEST(DessinTimbre, ClearsBeforeItPrints) {
  DessinTimbre dessin;
  const QImage vide = dessin.DessineTimbre(QString());
  dessin.DessineTimbre("23h59m58");
  EXPECT_EQ(dessin.DessineTimbre(QString()), vide);
}

TEST(DessinTimbre, TheLastSecondStaysWithinWhatIsCopied) {
  DessinTimbre dessin;
  const QImage timbre = dessin.DessineTimbre("20h00m08");
  EXPECT_EQ(CompteClairs(timbre.copy(66, 0, 2, 18)), 0);
}

// A vertical stroke begins two pixels from the edge, give or take what the font leaves free beside it.
TEST(DessinTimbre, BeginsTwoPixelsFromItsEdge) {
  DessinTimbre dessin;
  const QImage timbre = dessin.DessineTimbre("||");
  int gauche = 0;
  while (gauche < timbre.width() && CompteClairs(timbre.copy(gauche, 0, 1, timbre.height())) == 0) ++gauche;
  EXPECT_GE(gauche, 3);
  EXPECT_LE(gauche, 5);
}

}  // namespace
}  // namespace vaktor::essai
