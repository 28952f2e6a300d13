// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG frames that stay in their planes: the same picture, and nothing that a damaged one leaves behind.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cmath>

#include "platform/capture/frames/jpeg_of_test.h"
#include "platform/capture/frames/plane_frame.h"

namespace vaktor {
namespace {

using faux::Octets;

// Soft colours, so that the two ways of spreading chroma over its pixels agree.
QByteArray FabriqueJpeg(QSize taille, int sousEchantillon, int couleurs = TJPF_BGRX) {
  QImage image(taille, QImage::Format_RGB32);
  for (int y = 0; y < taille.height(); ++y) {
    for (int x = 0; x < taille.width(); ++x) image.setPixel(x, y, qRgb(40 + x % 90, 60 + y % 80, 120 + (x + y) % 50));
  }
  const QImage gris = image.convertToFormat(QImage::Format_Grayscale8);
  const QImage& source = couleurs == TJPF_GRAY ? gris : image;
  return faux::CompresseJpeg(source.constBits(), taille, static_cast<int>(source.bytesPerLine()), couleurs,
                             sousEchantillon, 95);
}

int Ecart(const QImage& a, const QImage& b) {
  int pire = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      pire = std::max({pire, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                       std::abs(qBlue(p) - qBlue(q)), std::abs(qAlpha(p) - qAlpha(q))});
    }
  }
  return pire;
}

TEST(PlansJpeg, GiveThePictureThatTheDecoderGives) {
  for (const int sousEchantillon : {TJSAMP_420, TJSAMP_422, TJSAMP_444}) {
    for (const QSize taille : {QSize(64, 48), QSize(65, 47), QSize(1, 1), QSize(3, 2)}) {
      const QByteArray jpeg = FabriqueJpeg(taille, sousEchantillon);
      DecodeurJpeg decodeur;
      ASSERT_EQ(decodeur.Taille(Octets(jpeg)), taille);
      ASSERT_NE(decodeur.PlansDeLImage().Format, GST_VIDEO_FORMAT_UNKNOWN);
      ReserveTrames reserve;
      const auto trame = reserve.Prend();
      ASSERT_TRUE(trame->DecodeJpeg(decodeur, Octets(jpeg), taille));
      trame->Prepare();
      QImage direct(taille, QImage::Format_RGB32);
      ASSERT_TRUE(decodeur.Decode(Octets(jpeg), direct));
      // Full range and factors of a sixty-fourth: three off at most, as everywhere.
      EXPECT_LE(Ecart(trame->Entiere(), direct), 3) << sousEchantillon << " " << taille.width();
    }
  }
}

TEST(PlansJpeg, GreyAndRarePicturesAreLeftToTheDecoderItself) {
  DecodeurJpeg decodeur;
  const QByteArray gris = FabriqueJpeg({32, 16}, TJSAMP_GRAY, TJPF_GRAY);
  EXPECT_EQ(decodeur.Taille(Octets(gris)), QSize(32, 16));
  EXPECT_EQ(decodeur.PlansDeLImage().Format, GST_VIDEO_FORMAT_UNKNOWN);
  const QByteArray debout = FabriqueJpeg({32, 16}, TJSAMP_440);
  EXPECT_EQ(decodeur.Taille(Octets(debout)), QSize(32, 16));
  EXPECT_EQ(decodeur.PlansDeLImage().Format, GST_VIDEO_FORMAT_UNKNOWN);
}

TEST(PlansJpeg, OfASideThatIsTooLongAreNotLookedAt) {
  QByteArray jpeg = FabriqueJpeg({64, 48}, TJSAMP_444);
  const qsizetype sof = jpeg.indexOf(QByteArray("\xFF\xC0", 2));
  ASSERT_GT(sof, 0);
  DecodeurJpeg decodeur;
  const auto dit = [&](const char* hauteurEtLargeur) {
    jpeg.replace(sof + 5, 4, QByteArray::fromHex(hauteurEtLargeur));
    return decodeur.Taille(Octets(jpeg));
  };
  EXPECT_EQ(dit("7fff0040"), QSize(64, 32'767));
  EXPECT_FALSE(decodeur.EtaitTropGrande());
  EXPECT_EQ(dit("80000040"), QSize());
  EXPECT_TRUE(decodeur.EtaitTropGrande());
  EXPECT_EQ(dit("00407fff"), QSize(32'767, 64));
  EXPECT_EQ(dit("00408000"), QSize());
  EXPECT_TRUE(decodeur.EtaitTropGrande());
}

// The sanitizers need memory themselves.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
/// From here on the process gets no more memory of the system.
void EpuiseMemoire() {
  const rlimit limite{1, 1};
  setrlimit(RLIMIT_AS, &limite);
}

// The driver's thread is not ours: what is thrown there ends the program.
TEST(PlansJpeg, APictureThatFindsNoMemoryIsDropped) {
  QByteArray jpeg = FabriqueJpeg({64, 48}, TJSAMP_444);
  const qsizetype sof = jpeg.indexOf(QByteArray("\xFF\xC0", 2));
  ASSERT_GT(sof, 0);
  jpeg.replace(sof + 5, 4, QByteArray("\x1F\x40\x1F\x40", 4));  // 8000 by 8000
  DecodeurJpeg decodeur;
  const QSize taille = decodeur.Taille(Octets(jpeg));
  ASSERT_EQ(taille, QSize(8000, 8000));
  ReserveTrames reserve;
  const auto trame = reserve.Prend();
  EXPECT_EXIT((EpuiseMemoire(), _exit(trame->DecodeJpeg(decodeur, Octets(jpeg), taille) ? 1 : 0)),
              testing::ExitedWithCode(0), "");
}

TEST(PlansJpeg, SamplesThatFindNoMemoryAreNone) {
  gst_init(nullptr, nullptr);
  GstVideoInfo info;
  gst_video_info_set_format(&info, GST_VIDEO_FORMAT_I420, 6000, 6000);
  GstBuffer* tampon = gst_buffer_new_allocate(nullptr, info.size, nullptr);
  ReserveTrames reserve;
  const auto trame = reserve.Prend();
  ASSERT_TRUE(trame->Garde(tampon, info));
  gst_buffer_unref(tampon);
  EXPECT_EXIT((EpuiseMemoire(), trame->Prepare(), _exit(trame->Echantillons({}).Bits != nullptr ? 1 : 0)),
              testing::ExitedWithCode(0), "");
  EXPECT_NE(trame->Echantillons({}).Bits, nullptr) << "with memory again";
}
#endif

TEST(PlansJpeg, AFrameCutAnywhereIsDroppedAndTheNextOneSeen) {
  const QSize taille(64, 48);
  const QByteArray jpeg = FabriqueJpeg(taille, TJSAMP_422);
  DecodeurJpeg decodeur;
  ReserveTrames reserve;
  for (qsizetype longueur = 0; longueur < jpeg.size() - 2; longueur += 7) {
    const QByteArray coupee = jpeg.left(longueur);
    if (!decodeur.Taille(Octets(coupee)).isEmpty()) {
      EXPECT_FALSE(reserve.Prend()->DecodeJpeg(decodeur, Octets(coupee), taille)) << longueur;
    }
    ASSERT_EQ(decodeur.Taille(Octets(jpeg)), taille) << longueur;
    ASSERT_TRUE(reserve.Prend()->DecodeJpeg(decodeur, Octets(jpeg), taille)) << longueur;
  }
}

}  // namespace
}  // namespace vaktor
