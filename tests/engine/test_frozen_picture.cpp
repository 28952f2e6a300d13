// SPDX-License-Identifier: GPL-3.0-or-later
// A camera that delivers the very same picture for ever: when that is told, and what ends it.
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "engine/engine_fixture.h"
#include "engine/frozen_picture.h"

namespace vaktor {
namespace {

constexpr qint64 kMinute = 60'000;

class ImageImmobile : public BancEssai {
 protected:
  /// A grey picture in which the first row alone is watched; its last sample differs from that by `ecart`.
  static QImage Grise(int ecart = 0) {
    QImage image = Unie(qRgb(64, 64, 64));
    image.setPixel(57, 57, qRgb(64 + ecart, 64, 64));
    return image;
  }
  void Demarre(const QImage& image) {
    DemarreSurNoir();
    PoseZone(0, 0, 59, 3);
    Image(image);
    Temps.Avance(60);
  }
  bool Figee() const { return Sante.Dure(Condition::kImageFigee); }
  bool Noire() const { return Sante.Dure(Condition::kImageNoire); }
};

TEST_F(ImageImmobile, IsToldAfterFiveMinutesWhateverTheLampSays) {
  Demarre(Grise());
  Temps.Avance(5 * kMinute - 3000);
  EXPECT_TRUE(Sante.Details.isEmpty());
  Temps.Avance(5000);
  EXPECT_TRUE(Figee());
  EXPECT_FALSE(Noire());
  Temps.Avance(60 * kMinute);
  EXPECT_TRUE(Figee());
  EXPECT_EQ(Sante.Debuts[Condition::kImageFigee], 1);
}

TEST_F(ImageImmobile, OnePixelOutsideTheZoneAndBelowTheToleranceEndsIt) {
  Demarre(Grise());
  Temps.Avance(6 * kMinute);
  ASSERT_TRUE(Figee());
  Image(Grise(1));
  Temps.Avance(ImageFigee::kRegardMs + 60);
  EXPECT_EQ(Detection().NbrPoints, 0);
  EXPECT_FALSE(Figee());
  Temps.Avance(5 * kMinute - 3000);
  EXPECT_FALSE(Figee()) << "five minutes of the new picture, not of the old one";
}

TEST_F(ImageImmobile, AFrameWithMovementEndsItAtOnce) {
  Demarre(Grise());
  Temps.Avance(6 * kMinute);
  ASSERT_TRUE(Figee());
  Trame(AvecPoints(40));
  EXPECT_FALSE(Figee());
}

TEST_F(ImageImmobile, ASensorThatFlickersInOnePixelNowAndThenIsAlive) {
  Demarre(Grise());
  for (int i = 0; i < 12; ++i) {
    Image(Grise(i % 2));
    Temps.Avance(kMinute);
    EXPECT_TRUE(Sante.Details.isEmpty()) << i;
  }
}

// Looks once a second would find it in the same phase for ever; 40 ms are a divisor of a second, as of most cameras.
TEST_F(ImageImmobile, WhatBlinksOnceASecondIsMetInBothItsPhases) {
  Demarre(Grise());
  Pilote.ParArrivee = true;
  for (int i = 0; i < 7 * 60 * 25; ++i) {
    Pilote.Image = Grise(i % 25 < 12 ? 0 : 1);
    Pilote.Arrive();
    Temps.Avance(40);
  }
  EXPECT_TRUE(Sante.Details.isEmpty());
}

TEST_F(ImageImmobile, ABlackOneIsToldAsThatSinceItMayOnlyBeDark) {
  Demarre(Unie(qRgb(kNoir, kNoir, kNoir)));
  Temps.Avance(6 * kMinute);
  EXPECT_TRUE(Noire());
  EXPECT_FALSE(Figee());
  for (const QRgb lueur : {qRgb(kNoir + 1, 0, 0), qRgb(0, kNoir + 1, 0), qRgb(0, 0, kNoir + 1)}) {
    QImage image = Unie(0);
    image.setPixel(57, 57, lueur);
    Image(image);
    Temps.Avance(6 * kMinute);
    EXPECT_TRUE(Figee()) << "one sample that shines is no darkness";
    EXPECT_FALSE(Noire());
  }
}

TEST_F(ImageImmobile, ASlowCameraIsJudgedLikeAnyOther) {
  Demarre(Grise());
  Pilote.ParArrivee = true;
  for (int i = 0; i < 7; ++i) {
    EXPECT_FALSE(Figee()) << i;
    Pilote.Arrive();
    Temps.Avance(50'000);
  }
  EXPECT_TRUE(Figee());
}

TEST_F(ImageImmobile, ALostCameraIsToldAsThatAlone) {
  Demarre(Grise());
  Temps.Avance(6 * kMinute);
  ASSERT_TRUE(Figee());
  Pilote.Muette = Pilote.Perdu = true;
  Temps.Avance(60);
  EXPECT_TRUE(Sante.Dure(Condition::kSignalPerdu));
  EXPECT_FALSE(Figee());
  Temps.Avance(10 * kMinute);
  EXPECT_FALSE(Figee());
  Pilote.Muette = Pilote.Perdu = false;
  Temps.Avance(4 * kMinute);
  EXPECT_FALSE(Figee());
  Temps.Avance(2 * kMinute);
  EXPECT_TRUE(Figee());
}

TEST_F(ImageImmobile, TheStopOfTheCameraTakesItBackAndTheNextStartBeginsAnew) {
  for (const QImage& image : {Grise(), Unie(0)}) {
    Demarre(image);
    Temps.Avance(6 * kMinute);
    ASSERT_TRUE(Figee() || Noire());
    Engin.BasculeCamera();
    EXPECT_TRUE(Sante.Details.isEmpty());
    Temps.Avance(kMinute);  // no gap that would begin it anew
    Engin.BasculeCamera();
    Temps.Avance(4 * kMinute);
    EXPECT_TRUE(Sante.Details.isEmpty());
    Engin.BasculeCamera();
  }
}

// A dialog of the driver was open, or the ticks were kept away: what the picture was meanwhile nobody has seen.
TEST_F(ImageImmobile, TimeInWhichNobodyLookedDoesNotCount) {
  Demarre(Grise());
  Temps.Avance(4 * kMinute);
  Pilote.Muette = true;
  Temps.Avance(3 * kMinute);
  Pilote.Muette = false;
  Temps.Avance(4 * kMinute);
  EXPECT_FALSE(Figee());
  Temps.Avance(kMinute + 3000);
  EXPECT_TRUE(Figee());
}

TEST_F(ImageImmobile, IsToldThoughItsFramesCannotBeCompared) {
  Demarre(Grise());
  Reglages.IntervalleFtp = QStringLiteral("ten");
  Temps.Avance(6 * kMinute);
  EXPECT_TRUE(Figee());
}

/// Finds no memory for its pixels.
class TrameSansMemoire : public TrameDifferee {
 public:
  QSize Taille() const override { return {60, 60}; }
  TrameBrute Echantillons(PhaseEchantillons) override { return {}; }
  const QImage& Entiere() override { return Nulle_; }

 private:
  QImage Nulle_;
};

TEST_F(ImageImmobile, FramesWithoutMemoryAreNoPicture) {
  Demarre(Grise());
  Pilote.SuivanteDifferee = std::make_shared<TrameSansMemoire>();
  Temps.Avance(6 * kMinute);
  EXPECT_FALSE(Figee());
  EXPECT_FALSE(Noire());
}

/// Finds none, and says so by an exception.
class TrameQuiJette : public TrameSansMemoire {
 public:
  TrameBrute Echantillons(PhaseEchantillons) override { throw std::bad_alloc(); }
};

TEST_F(ImageImmobile, ALookThatFindsNoMemoryEndsWithItsTick) {
  Demarre(Grise());
  Pilote.SuivanteDifferee = std::make_shared<TrameQuiJette>();
  EXPECT_NO_THROW(Temps.Avance(6 * kMinute));
  EXPECT_FALSE(Figee());
}

class Empreinte : public testing::Test {
 protected:
  static constexpr int kLargeur = 17;
  static constexpr int kHauteur = 11;
  Empreinte() : Image_(kLargeur, kHauteur, QImage::Format_RGB32) {
    for (int y = 0; y < kHauteur; ++y)
      for (int x = 0; x < kLargeur; ++x) Image_.setPixel(x, y, qRgb(7 * x + y, 200 - 9 * y, 31 * x));
  }
  EmpreinteImage Prend(PhaseEchantillons phase = {}) const { return PrendEmpreinte(PixelsDe(Image_), phase); }
  QImage Image_;
};

TEST_F(Empreinte, TellsTheLeastStepOfEachColourOfEachSample) {
  for (qint32 bord = 0; bord < kPasEchantillon; ++bord) {
    const PhaseEchantillons phase{.X = bord, .Y = (bord + 1) % kPasEchantillon};
    const EmpreinteImage avant = Prend(phase);
    EXPECT_EQ(Prend(phase), avant);
    int vus = 0;
    for (int y = 0; y < kHauteur; ++y) {
      for (int x = 0; x < kLargeur; ++x) {
        const bool echantillon = x % kPasEchantillon == phase.X && y % kPasEchantillon == phase.Y;
        for (const QRgb pas : {qRgb(1, 0, 0), qRgb(0, 1, 0), qRgb(0, 0, 1)}) {
          const QRgb ancien = Image_.pixel(x, y);
          Image_.setPixel(x, y, ancien ^ (pas & 0x00FFFFFFU));
          EXPECT_EQ(Prend(phase) != avant, echantillon) << x << ", " << y;
          vus += echantillon ? 1 : 0;
          Image_.setPixel(x, y, ancien);
        }
      }
    }
    EXPECT_GT(vus, 3 * 15);
  }
}

TEST_F(Empreinte, TwoSamplesThatChangePlacesAreAnotherPicture) {
  const EmpreinteImage avant = Prend();
  const QRgb a = Image_.pixel(3, 3);
  Image_.setPixel(3, 3, Image_.pixel(6, 3));
  Image_.setPixel(6, 3, a);
  EXPECT_NE(Prend(), avant);
}

TEST_F(Empreinte, TheByteThatNobodyLooksAtIsNotLookedAt) {
  const EmpreinteImage avant = Prend();
  for (int y = 0; y < kHauteur; ++y)
    for (int x = 0; x < kLargeur; ++x) Image_.scanLine(y)[4 * x + 3] = static_cast<uchar>(x + y);
  EXPECT_EQ(Prend(), avant);
}

TEST_F(Empreinte, OfAFrameThatHoldsItsSamplesOnlyIsThatOfTheWholePicture) {
  for (qint32 phaseX = 0; phaseX < kPasEchantillon; ++phaseX) {
    const PhaseEchantillons phase{.X = phaseX, .Y = 2 - phaseX};
    constexpr qsizetype kPart = qsizetype{4} * kLargeur;  // more than a third of a stored row
    std::vector<uchar> octets(static_cast<std::size_t>(kPart * (kHauteur + kPasEchantillon)), 0xAA);
    for (qint32 y = phase.Y; y < kHauteur; y += kPasEchantillon)
      for (qint32 x = phase.X; x < kLargeur; x += kPasEchantillon)
        std::memcpy(octets.data() + qptrdiff{y} * kPart + qptrdiff{4} * (x / kPasEchantillon),
                    Image_.constScanLine(y) + qptrdiff{4} * x, 4);
    EXPECT_EQ(PrendEmpreinte({octets.data(), kPart, kLargeur, kHauteur, true}, phase), Prend(phase)) << phaseX;
  }
}

// After 49 days the counter comes by its beginning again.
TEST(ImageFigee, CountsAcrossTheEndOfTheCounter) {
  ImageFigee figee;
  const EmpreinteImage image{.Somme = 5, .Noire = false};
  quint32 t = 0xFFFFFF00U;
  EXPECT_TRUE(figee.RegardDu(t));
  for (; t - 0xFFFFFF00U < ImageFigee::kFigeeMs; t += ImageFigee::kRegardMs) {
    figee.Regarde(image, t);
    EXPECT_EQ(figee.Dit(), ImageFigee::Etat::kVivante) << t;
    EXPECT_FALSE(figee.RegardDu(t + ImageFigee::kRegardMs - 1));
    EXPECT_TRUE(figee.RegardDu(t + ImageFigee::kRegardMs));
  }
  figee.Regarde(image, t);
  EXPECT_EQ(figee.Dit(), ImageFigee::Etat::kFigee);
}

}  // namespace
}  // namespace vaktor
