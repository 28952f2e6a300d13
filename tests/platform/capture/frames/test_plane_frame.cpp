// SPDX-License-Identifier: GPL-3.0-or-later
// Frames that are made into pixels when somebody looks at them.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "platform/capture/frames/plane_frame.h"

namespace vaktor {
namespace {

constexpr int kLargeur = 70;
constexpr int kHauteur = 40;

class TrameEnPlans : public testing::Test {
 protected:
  TrameEnPlans() {
    gst_init(nullptr, nullptr);
    gst_video_info_set_format(&Info, GST_VIDEO_FORMAT_I420, kLargeur, kHauteur);
  }

  /// A frame with a content of its own, delivered as the driver does it.
  std::shared_ptr<TramePlans> Livre(unsigned germe) {
    GstBuffer* tampon = gst_buffer_new_allocate(nullptr, Info.size, nullptr);
    GstMapInfo octets;
    EXPECT_TRUE(gst_buffer_map(tampon, &octets, GST_MAP_WRITE));
    std::mt19937 hasard(germe);
    for (gsize i = 0; i < octets.size; ++i) octets.data[i] = static_cast<quint8>(hasard());
    gst_buffer_unmap(tampon, &octets);
    std::shared_ptr<TramePlans> trame = Reserve.Prend();
    EXPECT_TRUE(trame->Garde(tampon, Info));
    gst_buffer_unref(tampon);  // the frame holds it now
    trame->Prepare();
    return trame;
  }
  QImage Attendue(unsigned germe) {
    ReserveTrames autre;
    std::swap(autre, Reserve);
    QImage image = Livre(germe)->Entiere().copy();
    std::swap(autre, Reserve);
    return image;
  }
  /// The frame as its parts give it: a piece, and what is left below and beside it.
  static QImage EcritParts(TramePlans& trame) {
    QImage image(kLargeur, kHauteur, QImage::Format_RGB32);
    for (const QRect& part : {QRect(0, 0, 30, 13), QRect(30, 0, kLargeur - 30, 13), QRect(0, 13, kLargeur, 27)})
      EXPECT_TRUE(trame.EcritPart(part, image.scanLine(part.y()) + qsizetype{4} * part.x(), image.bytesPerLine()));
    return image;
  }
  static quint32 Lit(const TrameBrute& trame, int x, int y) {
    quint32 pixel = 0;
    std::memcpy(&pixel, trame.Bits + y * trame.OctetsParLigne + qsizetype{4} * (trame.Serree ? x / kPasEchantillon : x),
                4);
    return pixel;
  }
  void Verifie(const TrameBrute& vue, const QImage& attendue, PhaseEchantillons phase) {
    ASSERT_NE(vue.Bits, nullptr);
    EXPECT_EQ(QSize(vue.Largeur, vue.Hauteur), attendue.size());
    for (int y = phase.Y; y < kHauteur; y += kPasEchantillon) {
      for (int x = phase.X; x < kLargeur; x += kPasEchantillon) {
        ASSERT_EQ(Lit(vue, x, y), attendue.pixel(x, y)) << x << ", " << y;
      }
    }
  }

  GstVideoInfo Info = {};
  ReserveTrames Reserve;
};

TEST_F(TrameEnPlans, SamplesAreThoseOfThePictureWhereverTheZoneBegins) {
  const QImage attendue = Attendue(3);
  const auto trame = Livre(3);
  constexpr qint32 kDerniere = kPasEchantillon - 1;
  for (const PhaseEchantillons phase : {PhaseEchantillons{0, 0}, {1, 1}, {kDerniere, kDerniere}, {1, 0}, {0, 0}}) {
    const TrameBrute vue = trame->Echantillons(phase);
    EXPECT_TRUE(vue.Serree);
    Verifie(vue, attendue, phase);
  }
}

TEST_F(TrameEnPlans, SamplesAreTheSameBeforeAndAfterThePictureWasMade) {
  const QImage attendue = Attendue(4);
  const auto trame = Livre(4);
  Verifie(trame->Echantillons({.X = 1, .Y = 1}), attendue, {.X = 1, .Y = 1});
  EXPECT_EQ(trame->Entiere(), attendue);
  Verifie(trame->Echantillons({.X = 0, .Y = 1}), attendue, {.X = 0, .Y = 1});
}

TEST_F(TrameEnPlans, OnePictureServesAllFramesWhileTheNewestAloneIsLookedAt) {
  std::shared_ptr<TramePlans> avant;
  const uchar* premiers = nullptr;
  for (unsigned germe = 0; germe < 10; ++germe) {
    auto trame = Livre(germe);
    EXPECT_EQ(trame->Entiere(), Attendue(germe));
    if (germe == 0) premiers = trame->Entiere().constBits();
    EXPECT_EQ(trame->Entiere().constBits(), premiers) << germe;
    avant = trame;  // a view that keeps the frame before and does not look at it
  }
}

TEST_F(TrameEnPlans, AFrameWhosePictureWasTakenShowsItAgain) {
  const auto une = Livre(5);
  const auto autre = Livre(6);
  EXPECT_EQ(une->Entiere(), Attendue(5));
  EXPECT_EQ(autre->Entiere(), Attendue(6));
  EXPECT_EQ(une->Entiere(), Attendue(5));
  EXPECT_EQ(autre->Entiere(), Attendue(6));
}

TEST_F(TrameEnPlans, WhereTheFrameBeforeIsLookedAtTooEachKeepsItsPicture) {
  std::shared_ptr<TramePlans> avant = Livre(1);
  avant->Entiere();
  for (unsigned germe = 2; germe < 8; ++germe) {
    auto trame = Livre(germe);
    trame->Entiere();
    const uchar* bits = trame->Entiere().constBits();
    avant->Entiere();  // the enlarged view, a frame behind
    if (germe > 2) {
      EXPECT_EQ(trame->Entiere().constBits(), bits) << germe;
    }
    avant = trame;
  }
}

TEST_F(TrameEnPlans, APictureGoesOnceNobodyLooks) {
  auto trame = Livre(5);
  trame->Entiere();
  trame.reset();
  Livre(6)->Echantillons({});  // compared only
  Livre(7);
  trame = Livre(8);
  EXPECT_TRUE(trame->CedeImage(trame->Taille()).isNull());
}

TEST_F(TrameEnPlans, AFrameThatNobodyTookTellsNothingOfTheReaders) {
  const uchar* bits = Livre(5)->Entiere().constBits();
  Livre(6);  // the reader was too slow for it
  EXPECT_EQ(Livre(7)->Entiere().constBits(), bits);
}

TEST_F(TrameEnPlans, APictureThatIsHeldStaysAsItIs) {
  const QImage attendue = Attendue(5);
  const QImage gardee = Livre(5)->Entiere();
  for (unsigned germe = 6; germe < 20; ++germe) Livre(germe)->Entiere();
  EXPECT_EQ(gardee, attendue);
}

// Into memory of the caller's, without a picture of the frame's own.
TEST_F(TrameEnPlans, APartIsWrittenWithoutMakingThePicture) {
  const auto trame = Livre(5);
  EXPECT_EQ(EcritParts(*trame), Attendue(5));
  EXPECT_TRUE(trame->CedeImage(trame->Taille()).isNull());
}

TEST_F(TrameEnPlans, APartOfAPictureThatIsThereIsTakenFromIt) {
  const auto trame = Livre(5);
  const QImage gardee = trame->Entiere();
  EXPECT_EQ(EcritParts(*trame), Attendue(5));
  EXPECT_EQ(trame->Entiere().constBits(), gardee.constBits()) << "it was not made again";
  uchar octets[16];
  EXPECT_TRUE(trame->EcritPart({1, 1, 4, 1}, octets, 16)) << "where it begins does not matter then";
  EXPECT_EQ(std::memcmp(octets, Attendue(5).constScanLine(1) + 4, 16), 0);
  for (const QRect& part : {QRect(0, 0, kLargeur + 1, 1), QRect(0, -1, 4, 2)})
    EXPECT_FALSE(trame->EcritPart(part, octets, 0));
}

TEST_F(TrameEnPlans, WhereAnotherViewLooksAtTheWholeThatIsMadeOnceForBoth) {
  const auto avant = Livre(5);
  avant->Entiere();
  const auto trame = Livre(6);
  EXPECT_EQ(EcritParts(*trame), Attendue(6));
  EXPECT_FALSE(trame->CedeImage(trame->Taille()).isNull());
}

TEST_F(TrameEnPlans, PartsAloneAskForNoMorePicturesOnceNobodyElseLooks) {
  auto trame = Livre(5);
  trame->Entiere();
  trame.reset();
  for (unsigned germe = 6; germe < 10; ++germe) {
    trame.reset();
    trame = Livre(germe);
    trame->Echantillons({});
    EcritParts(*trame);
  }
  EXPECT_TRUE(trame->CedeImage(trame->Taille()).isNull());
}

TEST_F(TrameEnPlans, FramesAndTheirMemoryComeBack) {
  std::shared_ptr<TramePlans> montree;
  const uchar* premiers = nullptr;
  for (unsigned germe = 0; germe < 30; ++germe) {
    auto trame = Livre(germe);
    const uchar* bits = trame->Echantillons({}).Bits;
    if (germe == 2) premiers = bits;
    if (germe > 2 && germe % 2 == 0) {
      EXPECT_EQ(bits, premiers) << "two frames take turns";
    }
    montree = trame;
  }
  EXPECT_EQ(Reserve.Nombre(), 2U);
}

TEST_F(TrameEnPlans, LetsTheDecodersBufferGoWhenTheNextFrameComes) {
  int vivants = 0;
  GstBuffer* tampon = gst_buffer_new_allocate(nullptr, Info.size, nullptr);
  ++vivants;
  gst_mini_object_weak_ref(
      GST_MINI_OBJECT_CAST(tampon), [](gpointer compte, GstMiniObject*) { --*static_cast<int*>(compte); }, &vivants);
  auto trame = Reserve.Prend();
  ASSERT_TRUE(trame->Garde(tampon, Info));
  gst_buffer_unref(tampon);
  EXPECT_EQ(vivants, 1);
  trame.reset();
  Reserve.Prend();
  EXPECT_EQ(vivants, 0);
}

}  // namespace
}  // namespace vaktor
