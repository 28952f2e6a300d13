// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QBuffer>
#include <cmath>
#include <cstring>
#include <random>

#include "platform/capture/frames/jpeg_decoder.h"
#include "platform/capture/frames/jpeg_of_test.h"
#include "platform/capture/frames/pixel_conversion.h"

namespace vaktor {
namespace {

using faux::Octets;

// A raw frame of our own with random content, as a pipeline would give it.
class Trame {
 public:
  Trame(GstVideoFormat format, int largeur, int hauteur, const char* couleurs) {
    gst_init(nullptr, nullptr);
    gst_video_info_set_format(&Info_, format, static_cast<guint>(largeur), static_cast<guint>(hauteur));
    if (couleurs != nullptr) gst_video_colorimetry_from_string(&Info_.colorimetry, couleurs);
    Tampon_ = gst_buffer_new_allocate(nullptr, Info_.size, nullptr);
    gst_video_frame_map(&Trame_, &Info_, Tampon_, GST_MAP_READWRITE);
    std::mt19937 hasard(7);
    auto* octets = static_cast<quint8*>(GST_VIDEO_FRAME_PLANE_DATA(&Trame_, 0));
    for (gsize i = 0; i < Info_.size; ++i) octets[i] = static_cast<quint8>(hasard());
  }
  ~Trame() {
    gst_video_frame_unmap(&Trame_);
    gst_buffer_unref(Tampon_);
  }
  Trame(const Trame&) = delete;
  Trame& operator=(const Trame&) = delete;

  const GstVideoFrame& operator*() const { return Trame_; }
  // One component of one pixel, found by GStreamer's own description of the format.
  int Composante(guint numero, int x, int y) const {
    const GstVideoFormatInfo* f = Info_.finfo;
    const auto* octets = static_cast<const quint8*>(GST_VIDEO_FRAME_COMP_DATA(&Trame_, numero));
    const int colonne = x >> GST_VIDEO_FORMAT_INFO_W_SUB(f, numero);
    const int ligne = y >> GST_VIDEO_FORMAT_INFO_H_SUB(f, numero);
    return octets[ligne * GST_VIDEO_FRAME_COMP_STRIDE(&Trame_, numero) +
                  colonne * GST_VIDEO_FRAME_COMP_PSTRIDE(&Trame_, numero)];
  }

 private:
  GstVideoInfo Info_ = {};
  GstBuffer* Tampon_ = nullptr;
  GstVideoFrame Trame_ = {};
};

// The formulas of ITU-R BT.601 and BT.709, one pixel after the other.
struct Reference {
  double Kr, Kb;
  bool Pleine;
  int Tolerance;
  QRgb Pixel(int y, int u, int v) const {
    const double lumiere = Pleine ? y : (y - 16) * 255.0 / 219.0;
    const double ampleur = Pleine ? 1.0 : 255.0 / 224.0;
    const double pb = (u - 128) * ampleur;
    const double pr = (v - 128) * ampleur;
    const double r = lumiere + 2 * (1 - Kr) * pr;
    const double b = lumiere + 2 * (1 - Kb) * pb;
    const double g = (lumiere - Kr * r - Kb * b) / (1 - Kr - Kb);
    const auto borne = [](double c) { return static_cast<int>(std::lround(std::min(255.0, std::max(0.0, c)))); };
    return qRgb(borne(r), borne(g), borne(b));
  }
};

int Ecart(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

struct CasYuv {
  GstVideoFormat Format;
  const char* Couleurs;
  Reference Formule;
};

class ConversionYuv : public testing::TestWithParam<CasYuv> {};

// libyuv counts with factors of a sixty-fourth, so it may be off by three from the exact formula; its greatest factor
// is 2, and blue of limited BT.709 (2.11) falls short by a twentieth of its chroma. The alpha byte is exact.
TEST_P(ConversionYuv, AgreesWithTheFormulaInEveryPixel) {
  for (const QSize taille : {QSize(64, 32), QSize(67, 33), QSize(1, 1), QSize(1027, 3), QSize(2, 1)}) {
    const Trame trame(GetParam().Format, taille.width(), taille.height(), GetParam().Couleurs);
    QImage image(taille, QImage::Format_RGB32);
    image.fill(0);
    ASSERT_TRUE(ConvertitImage(*trame, image));
    int pire = 0;
    for (int y = 0; y < taille.height(); ++y) {
      for (int x = 0; x < taille.width(); ++x) {
        const auto pixel = reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
        ASSERT_EQ(qAlpha(pixel), 255);
        const QRgb juste =
            GetParam().Formule.Pixel(trame.Composante(0, x, y), trame.Composante(1, x, y), trame.Composante(2, x, y));
        pire = std::max(pire, Ecart(pixel, juste));
      }
    }
    EXPECT_LE(pire, GetParam().Formule.Tolerance) << taille.width() << "x" << taille.height();
  }
}

constexpr Reference k601{0.299, 0.114, false, 3};
constexpr Reference k601Pleine{0.299, 0.114, true, 3};
constexpr Reference k709{0.2126, 0.0722, false, 16};
constexpr Reference k709Pleine{0.2126, 0.0722, true, 3};

INSTANTIATE_TEST_SUITE_P(
    Formats, ConversionYuv,
    testing::Values(CasYuv{GST_VIDEO_FORMAT_I420, "bt601", k601}, CasYuv{GST_VIDEO_FORMAT_I420, "1:4:0:0", k601Pleine},
                    CasYuv{GST_VIDEO_FORMAT_I420, "bt709", k709}, CasYuv{GST_VIDEO_FORMAT_NV12, "1:3:5:1", k709Pleine},
                    CasYuv{GST_VIDEO_FORMAT_NV12, "bt709", k709}, CasYuv{GST_VIDEO_FORMAT_NV21, "bt601", k601},
                    CasYuv{GST_VIDEO_FORMAT_YV12, "bt601", k601}, CasYuv{GST_VIDEO_FORMAT_YUY2, "bt601", k601},
                    CasYuv{GST_VIDEO_FORMAT_YUY2, "bt709", k709}, CasYuv{GST_VIDEO_FORMAT_UYVY, "1:4:0:0", k601Pleine},
                    CasYuv{GST_VIDEO_FORMAT_YVYU, "bt601", k601}, CasYuv{GST_VIDEO_FORMAT_Y42B, "bt601", k601},
                    CasYuv{GST_VIDEO_FORMAT_Y444, "bt709", k709}));

class ConversionRvb : public testing::TestWithParam<GstVideoFormat> {};

TEST_P(ConversionRvb, KeepsEveryChannelAndFillsTheFourthByte) {
  for (const QSize taille : {QSize(33, 5), QSize(1, 1)}) {
    const Trame trame(GetParam(), taille.width(), taille.height(), nullptr);
    QImage image(taille, QImage::Format_RGB32);
    ASSERT_TRUE(ConvertitImage(*trame, image));
    for (int y = 0; y < taille.height(); ++y) {
      for (int x = 0; x < taille.width(); ++x) {
        const auto pixel = reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
        ASSERT_EQ(pixel, qRgb(trame.Composante(0, x, y), trame.Composante(1, x, y), trame.Composante(2, x, y)));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, ConversionRvb,
                         testing::Values(GST_VIDEO_FORMAT_BGRx, GST_VIDEO_FORMAT_BGRA, GST_VIDEO_FORMAT_RGBx,
                                         GST_VIDEO_FORMAT_RGBA, GST_VIDEO_FORMAT_RGB, GST_VIDEO_FORMAT_BGR));

TEST(ConvertitImage, MakesGreyFromGrey) {
  const Trame trame(GST_VIDEO_FORMAT_GRAY8, 9, 3, "1:1:0:0");
  QImage image(9, 3, QImage::Format_RGB32);
  ASSERT_TRUE(ConvertitImage(*trame, image));
  const int gris = trame.Composante(0, 4, 1);
  EXPECT_LE(Ecart(image.pixel(4, 1), qRgb(gris, gris, gris)), 1);
}

TEST(ConvertitImage, RefusesWhatDoesNotFit) {
  const Trame trame(GST_VIDEO_FORMAT_I420, 16, 16, nullptr);
  QImage image(16, 15, QImage::Format_RGB32);
  EXPECT_FALSE(ConvertitImage(*trame, image));
  const Trame inconnue(GST_VIDEO_FORMAT_v210, 48, 16, nullptr);
  QImage pour(48, 16, QImage::Format_RGB32);
  EXPECT_FALSE(ConvertitImage(*inconnue, pour));
  EXPECT_FALSE(FormatConvertible(GST_VIDEO_FORMAT_v210));
}

class ConversionDUnePart : public testing::TestWithParam<GstVideoFormat> {};

TEST_P(ConversionDUnePart, GivesTheSameBytesAsThatOfTheWhole) {
  const Trame trame(GetParam(), 67, 23, nullptr);
  const PlansImage plans = PlansDe(*trame);
  QImage image(67, 23, QImage::Format_RGB32);
  ASSERT_TRUE(ConvertitImage(plans, image));
  for (const QRect& part : {QRect(0, 0, 67, 23), QRect(2, 0, 65, 1), QRect(0, 1, 67, 22), QRect(10, 5, 33, 4),
                            QRect(66, 22, 1, 1), QRect(0, 22, 67, 1), QRect(4, 7, 1, 3)}) {
    QImage autour(80, 30, QImage::Format_RGB32);
    autour.fill(qRgb(1, 2, 3));
    QImage attendue = autour;
    ASSERT_TRUE(
        ConvertitPart(plans, part, autour.scanLine(3) + qptrdiff{4} * 5, static_cast<int>(autour.bytesPerLine())));
    for (int y = 0; y < part.height(); ++y)
      for (int x = 0; x < part.width(); ++x)
        attendue.setPixel(5 + x, 3 + y, image.pixel(part.topLeft() + QPoint(x, y)));
    EXPECT_EQ(autour, attendue) << part.x() << ", " << part.y() << ", nothing beside it is written";
  }
}

TEST_P(ConversionDUnePart, RefusesWhatLiesOutsideOrBeginsWithinAColour) {
  const Trame trame(GetParam(), 67, 23, nullptr);
  const PlansImage plans = PlansDe(*trame);
  QImage vers(67, 23, QImage::Format_RGB32);
  const auto convertit = [&](const QRect& part) {
    return ConvertitPart(plans, part, vers.bits(), static_cast<int>(vers.bytesPerLine()));
  };
  for (const QRect& part : {QRect(-2, 0, 4, 4), QRect(0, -1, 4, 4), QRect(64, 0, 4, 1), QRect(0, 22, 4, 2)})
    EXPECT_FALSE(convertit(part)) << part.x() << ", " << part.y();
  EXPECT_EQ(convertit({1, 0, 4, 4}), GetParam() == GST_VIDEO_FORMAT_Y444) << "each pixel has a colour of its own there";
}

INSTANTIATE_TEST_SUITE_P(ConvertitPart, ConversionDUnePart,
                         testing::Values(GST_VIDEO_FORMAT_I420, GST_VIDEO_FORMAT_YV12, GST_VIDEO_FORMAT_Y42B,
                                         GST_VIDEO_FORMAT_Y444));

TEST(ConvertitPart, RefusesWhatIsStoredOtherwise) {
  const Trame trame(GST_VIDEO_FORMAT_NV12, 16, 16, nullptr);
  QImage vers(16, 16, QImage::Format_RGB32);
  EXPECT_FALSE(ConvertitPart(PlansDe(*trame), {0, 0, 16, 16}, vers.bits(), 64));
  EXPECT_FALSE(ConvertitPart(PlansImage(), {}, vers.bits(), 64));
}

QByteArray FabriqueJpeg(int largeur, int hauteur) {
  std::vector<quint8> pixels(static_cast<size_t>(largeur) * static_cast<size_t>(hauteur) * 4);
  for (size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<quint8>((i * i) >> 7);
  return faux::CompresseJpeg(pixels.data(), {largeur, hauteur}, 0, TJPF_BGRX, TJSAMP_422, 90);
}

TEST(DecodeurJpeg, DecodesOddSizesWithFullFourthBytes) {
  DecodeurJpeg decodeur;
  for (const QSize taille : {QSize(65, 47), QSize(1, 1)}) {
    const QByteArray jpeg = FabriqueJpeg(taille.width(), taille.height());
    ASSERT_EQ(decodeur.Taille(Octets(jpeg)), taille);
    QImage image(taille, QImage::Format_RGB32);
    image.fill(0);
    ASSERT_TRUE(decodeur.Decode(Octets(jpeg), image));
    for (int x = 0; x < taille.width(); ++x) {
      ASSERT_EQ(qAlpha(reinterpret_cast<const QRgb*>(image.constScanLine(0))[x]), 255);
    }
  }
}

TEST(DecodeurJpeg, DropsWhatIsDamaged) {
  DecodeurJpeg decodeur;
  const QByteArray jpeg = FabriqueJpeg(64, 48);
  QImage image(64, 48, QImage::Format_RGB32);
  EXPECT_FALSE(decodeur.Decode(Octets(jpeg.left(jpeg.size() / 2)), image));
  EXPECT_TRUE(decodeur.Taille(Octets(QByteArray("\xff\xd8 nothing of the kind"))).isEmpty());
  EXPECT_TRUE(decodeur.Taille({}).isEmpty());
  QByteArray abime = jpeg;
  for (qsizetype i = abime.size() / 2; i < abime.size() / 2 + 60; ++i) abime[i] = static_cast<char>(0xFF);
  EXPECT_FALSE(decodeur.Decode(Octets(abime), image));
  EXPECT_TRUE(decodeur.Decode(Octets(jpeg), image));
}

// TurboJPEG would fail for good after a frame that ends between its tables.
TEST(DecodeurJpeg, SeesTheWholeFrameAfterOneThatWasCutAnywhere) {
  DecodeurJpeg decodeur;
  const QByteArray jpeg = FabriqueJpeg(64, 48);
  QImage image(64, 48, QImage::Format_RGB32);
  for (qsizetype reste = 0; reste < jpeg.size() - 2; reste += 13) {
    const QByteArray coupe = jpeg.left(reste);
    if (!decodeur.Taille(Octets(coupe)).isEmpty()) {
      EXPECT_FALSE(decodeur.Decode(Octets(coupe), image)) << reste;
    }
    ASSERT_EQ(decodeur.Taille(Octets(jpeg)), QSize(64, 48)) << "after one cut at " << reste;
    ASSERT_TRUE(decodeur.Decode(Octets(jpeg), image)) << "after one cut at " << reste;
  }
}

// Filling bytes before the end marker: a habit of some webcams, so that dropping all their frames would blind them.
TEST(DecodeurJpeg, GetsUsedToFillingBytesThatComeInEveryFrame) {
  DecodeurJpeg decodeur;
  QByteArray rempli = FabriqueJpeg(64, 48);
  rempli.insert(rempli.size() - 2, QByteArray(16, '\0'));
  QImage image(64, 48, QImage::Format_RGB32);
  int refusees = 0;
  while (refusees < 100 && !decodeur.Decode(Octets(rempli), image)) ++refusees;
  EXPECT_LT(refusees, 10);
  EXPECT_GE(refusees, 5) << "a damaged frame has them too, but not one after the other";
  EXPECT_TRUE(decodeur.Decode(Octets(rempli), image));
  EXPECT_FALSE(decodeur.Decode(Octets(rempli.left(rempli.size() / 2)), image));
}

TEST(DecodeurJpeg, RefusesAPictureOfAbsurdSize) {
  DecodeurJpeg decodeur;
  QByteArray jpeg = FabriqueJpeg(64, 48);
  const qsizetype entete = jpeg.indexOf(QByteArray("\xff\xc0"));
  ASSERT_GT(entete, 0);
  for (int i = 5; i < 9; ++i) jpeg[entete + i] = static_cast<char>(0xF0);
  EXPECT_TRUE(decodeur.Taille(Octets(jpeg)).isEmpty());
}

}  // namespace
}  // namespace vaktor
