// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/capture/streams/test_picture.h"

namespace vaktor {
namespace {

QImage Vide() { return {ImageTest::kLargeur, ImageTest::kHauteur, QImage::Format_RGB32}; }

QImage Dessinee(ImageTest& source, quint64 numero) {
  QImage image = Vide();
  source.Dessine(numero, image);
  return image;
}

// As the detection compares: every third pixel of every third row, the colour as one number.
struct Comparaison {
  int Pire = 0;
  int Nombre = 0;
};

int Valeur(QRgb pixel) { return qRed(pixel) | (qGreen(pixel) << 8) | (qBlue(pixel) << 16); }

Comparaison Compare(const QImage& a, const QImage& b, int tolerance) {
  Comparaison resultat;
  for (int y = 0; y < a.height(); y += 3) {
    for (int x = 0; x < a.width(); x += 3) {
      const int ecart = std::abs(Valeur(a.pixel(x, y)) - Valeur(b.pixel(x, y)));
      resultat.Pire = std::max(resultat.Pire, ecart);
      resultat.Nombre += ecart > tolerance ? 1 : 0;
    }
  }
  return resultat;
}

TEST(ImageTest, IsTheSameOnEveryRunFromAnyFrameOn) {
  ImageTest une;
  ImageTest autre;
  for (const quint64 numero : {quint64{0}, quint64{1}, ImageTest::kPremierPassage + 80}) {
    EXPECT_EQ(Dessinee(une, numero), Dessinee(autre, numero)) << numero;
  }
  // Not only along the same road: what was drawn before leaves nothing behind.
  const quint64 apres = ImageTest::kPremierPassage + ImageTest::kDureePassage + 5;
  ImageTest directe;
  EXPECT_EQ(Dessinee(une, apres), Dessinee(directe, apres));
}

TEST(ImageTest, ShowsNothingButNoiseBeforeTheFirstWalker) {
  ImageTest source;
  EXPECT_GE(ImageTest::kPremierPassage, 15U * ImageTest::kCadence);
  QImage avant = Dessinee(source, 0);
  int pire = 0;
  for (quint64 n = 1; n < ImageTest::kPremierPassage; n += 7) {
    const QImage image = Dessinee(source, n);
    pire = std::max(pire, Compare(avant, image, 0).Pire);
    avant = image;
  }
  EXPECT_GT(pire, 0) << "a camera without noise would be none";
  // Far below the top of the scale.
  EXPECT_LE(pire, 2 * ImageTest::kBruit * 0x10101);
}

// The walker raises the alarm even at a tolerance that stands at its very top, and on every frame in the middle.
TEST(ImageTest, ShowsAWalkerWhomEveryToleranceSees) {
  ImageTest source;
  const quint64 milieu = ImageTest::kPremierPassage + ImageTest::kDureePassage / 2;
  QImage avant = Dessinee(source, milieu - 30);
  for (quint64 n = milieu - 29; n < milieu + 30; ++n) {
    const QImage image = Dessinee(source, n);
    EXPECT_GT(Compare(avant, image, 7'000'000).Nombre, 30) << n;
    avant = image;
  }
}

TEST(ImageTest, SendsSomebodyThroughFromTimeToTime) {
  EXPECT_FALSE(ImageTest::EstPassage(ImageTest::kPremierPassage - 1));
  EXPECT_TRUE(ImageTest::EstPassage(ImageTest::kPremierPassage));
  EXPECT_FALSE(ImageTest::EstPassage(ImageTest::kPremierPassage + ImageTest::kDureePassage));
  EXPECT_TRUE(ImageTest::EstPassage(ImageTest::kPremierPassage + ImageTest::kEntrePassages));
  ImageTest source;
  const quint64 milieu = ImageTest::kPremierPassage + ImageTest::kDureePassage / 2;
  // The other way round the second time.
  EXPECT_NE(Dessinee(source, milieu), Dessinee(source, milieu + ImageTest::kEntrePassages));
}

TEST(ImageTest, FillsTheFourthByteOfEveryPixel) {
  ImageTest source;
  const QImage image = Dessinee(source, ImageTest::kPremierPassage + 90);
  for (int y = 0; y < image.height(); ++y) {
    const auto* ligne = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) ASSERT_EQ(qAlpha(ligne[x]), 255);
  }
}

}  // namespace
}  // namespace vaktor
