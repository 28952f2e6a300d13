// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that are too large for the detection, scaled down: the same scene, in colour and in place.
#include "platform/capture/frames/own_planes.h"

#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/frames/jpeg_of_test.h"
#include "platform/capture/frames/picture_shape.h"
#include "platform/capture/frames/plane_frame.h"

namespace vaktor {
namespace {

using faux::Octets;

int Ecart(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                   std::abs(qAlpha(a) - qAlpha(b))});
}

/// A picture whose four quarters are of one brightness and colour each, in planes with a gap behind each row.
struct QuatreQuarts {
  static constexpr int kTrou = 13;

  QuatreQuarts(GstVideoFormat format, QSize taille) {
    const bool enLargeur = format != GST_VIDEO_FORMAT_Y444;
    const bool enHauteur = enLargeur && format != GST_VIDEO_FORMAT_Y42B;
    Plans = {format, GST_VIDEO_COLOR_MATRIX_BT709, true, taille.width(), taille.height(), {}};
    for (size_t i = 0; i < 3; ++i) {
      const QSize plan(i > 0 && enLargeur ? (taille.width() + 1) / 2 : taille.width(),
                       i > 0 && enHauteur ? (taille.height() + 1) / 2 : taille.height());
      Octets[i].assign(static_cast<size_t>(plan.width() + kTrou) * static_cast<size_t>(plan.height()), 0);
      for (int y = 0; y < plan.height(); ++y) {
        quint8* ligne = Octets[i].data() + static_cast<size_t>(y * (plan.width() + kTrou));
        const int milieu = (plan.width() + 1) / 2;
        std::fill(ligne, ligne + milieu, Valeur(i, false, 2 * y >= plan.height()));
        std::fill(ligne + milieu, ligne + plan.width(), Valeur(i, true, 2 * y >= plan.height()));
      }
      Plans.Plans[i] = {Octets[i].data(), plan.width() + kTrou};
    }
  }
  static quint8 Valeur(size_t plan, bool droite, bool bas) {
    return static_cast<quint8>(40 + 50 * static_cast<int>(plan) + (droite ? 20 : 0) + (bas ? 60 : 0));
  }
  std::array<std::vector<quint8>, 3> Octets;
  PlansImage Plans;
};

class Reduction : public testing::TestWithParam<GstVideoFormat> {};

TEST_P(Reduction, KeepsEachPartOfThePictureInItsPlaceAndColour) {
  for (const auto& [avant, apres] :
       {std::pair(QSize(2560, 1440), QSize(2304, 1296)), std::pair(QSize(3840, 2160), QSize(2304, 1296)),
        std::pair(QSize(3840, 2160), QSize(1920, 1080)), std::pair(QSize(2560, 1440), QSize(1920, 1080)),
        std::pair(QSize(301, 203), QSize(100, 60))}) {
    const QuatreQuarts source(GetParam(), avant);
    PlansPropres reduite;
    ASSERT_TRUE(reduite.Reduit(source.Plans, apres));
    const PlansImage& plans = reduite.Plans();
    EXPECT_EQ(QSize(plans.Largeur, plans.Hauteur), apres);
    EXPECT_EQ(plans.Format, GetParam());
    EXPECT_EQ(plans.Matrice, GST_VIDEO_COLOR_MATRIX_BT709);
    EXPECT_TRUE(plans.Pleine);
    QImage image(apres, QImage::Format_RGB32);
    ASSERT_TRUE(ConvertitImage(plans, image)) << "planes of just that form";
    for (const bool droite : {false, true}) {
      for (const bool bas : {false, true}) {
        PlansImage un = source.Plans;
        const std::array<quint8, 3> valeurs = {QuatreQuarts::Valeur(0, droite, bas),
                                               QuatreQuarts::Valeur(1, droite, bas),
                                               QuatreQuarts::Valeur(2, droite, bas)};
        for (size_t i = 0; i < 3; ++i) un.Plans[i] = {&valeurs[i], 1};
        un.Largeur = un.Hauteur = 1;
        QImage attendu(1, 1, QImage::Format_RGB32);
        ASSERT_TRUE(ConvertitImage(un, attendu));
        // Two pixels from the borders of the quarter the filter mixes nothing in, to the last row and column.
        const int x0 = droite ? apres.width() / 2 + 4 : 0;
        const int y0 = bas ? apres.height() / 2 + 4 : 0;
        const int x1 = droite ? apres.width() - 1 : apres.width() / 2 - 5;
        const int y1 = bas ? apres.height() - 1 : apres.height() / 2 - 5;
        for (const QPoint p : {QPoint(x0, y0), QPoint(x1, y0), QPoint(x0, y1), QPoint(x1, y1)}) {
          EXPECT_LE(Ecart(image.pixel(p), attendu.pixel(0, 0)), 3) << p.x() << " " << p.y() << " of " << apres.width();
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, Reduction,
                         testing::Values(GST_VIDEO_FORMAT_I420, GST_VIDEO_FORMAT_YV12, GST_VIDEO_FORMAT_Y42B,
                                         GST_VIDEO_FORMAT_Y444),
                         [](const auto& essai) { return std::string(gst_video_format_to_string(essai.param)); });

// A line of light that falls between the pixels that are kept must not vanish: somebody thin walks through the picture.
TEST(Reduction, NoRowAndNoColumnIsSkipped) {
  for (const size_t place : {1000U, 1001U, 1002U, 1003U, 1004U}) {
    QuatreQuarts source(GST_VIDEO_FORMAT_Y444, {3840, 2160});
    std::vector<quint8> noir(source.Octets[0].size(), 0);
    constexpr size_t kLigne = 3840 + QuatreQuarts::kTrou;
    for (size_t i = 0; i < 3840; ++i) noir[place * kLigne + i] = 255;
    for (size_t i = 0; i < 2160; ++i) noir[i * kLigne + place] = 255;
    source.Plans.Plans[0].Octets = noir.data();
    PlansPropres reduite;
    ASSERT_TRUE(reduite.Reduit(source.Plans, {2304, 1296}));
    const PlansImage::Plan& y = reduite.Plans().Plans[0];
    const int ici = static_cast<int>(place) * 3 / 5;
    int enLigne = 0;
    int enColonne = 0;
    for (int i = ici - 2; i <= ici + 2; ++i) {
      enLigne += y.Octets[static_cast<qptrdiff>(i) * y.Pas + 20];
      enColonne += y.Octets[qptrdiff{20} * y.Pas + i];
    }
    EXPECT_GT(enLigne, 80) << place;
    EXPECT_GT(enColonne, 80) << place;
  }
}

// Two columns share a byte of colour; that of a last one without a neighbour is there as well.
TEST(Reduction, TheColourOfTheLastPairOfAnOddSideCounts) {
  const std::vector<quint8> y(25, 100);
  const std::vector<quint8> couleur = {10, 10, 250, 10, 10, 250, 250, 250, 250};
  const PlansImage plans{GST_VIDEO_FORMAT_I420,
                         GST_VIDEO_COLOR_MATRIX_BT601,
                         true,
                         5,
                         5,
                         {{{y.data(), 5}, {couleur.data(), 3}, {couleur.data(), 3}}}};
  PlansPropres reduite;
  ASSERT_TRUE(reduite.Reduit(plans, {2, 2}));
  EXPECT_EQ(reduite.Plans().Plans[1].Octets[0], (4 * 10 + 5 * 250) / 9) << "the mean of all of them";
}

// The last row and the last column are still where they should be.
TEST(Reduction, OfTheLongestSideIsMadeOfAllOfIt) {
  const std::size_t combien = std::size_t{kCoteMaximum} * 128;
  for (const QSize avant : {QSize(kCoteMaximum, 128), QSize(128, kCoteMaximum)}) {
    std::vector<quint8> y(combien, 50);
    const bool large = avant.width() > avant.height();
    for (std::size_t i = 0; i < 128; ++i) {
      if (large)
        std::fill_n(y.begin() + static_cast<qptrdiff>((i + 1) * kCoteMaximum - 64), 64, quint8{200});
      else
        std::fill_n(y.end() - static_cast<qptrdiff>((i + 1) * 64), 64, quint8{200});
    }
    const PlansImage plans{GST_VIDEO_FORMAT_Y444,
                           GST_VIDEO_COLOR_MATRIX_BT601,
                           true,
                           avant.width(),
                           avant.height(),
                           {{{y.data(), avant.width()}, {y.data(), avant.width()}, {y.data(), avant.width()}}}};
    const QSize apres = TailleRetenue(avant);
    ASSERT_NE(apres, avant);
    PlansPropres reduite;
    ASSERT_TRUE(reduite.Reduit(plans, apres));
    const PlansImage::Plan& plan = reduite.Plans().Plans[0];
    EXPECT_EQ(plan.Octets[0], 50);
    EXPECT_EQ(plan.Octets[qptrdiff{apres.height() - 1} * plan.Pas + apres.width() - 1], 200);
  }
}

// Pixels that are wider than high may ask for a side that is too long: their picture stays as it is stored.
TEST(FormeImage, MakesNoSideLongerThanCanBeHeld) {
  const FormeImage forme{.PixelNum = 4, .PixelDen = 1};
  EXPECT_EQ(forme.Carree({8190, 20}), QSize(32'760, 20));
  EXPECT_EQ(forme.Carree({8192, 20}), QSize(8192, 20));
}

TEST(Reduction, OfPixelsKeepsThemInTheirPlaceToo) {
  QImage image(2560, 1440, QImage::Format_RGB32);
  image.fill(qRgb(10, 200, 30));
  for (int y = 720; y < 1440; ++y) {
    for (int x = 1280; x < 2560; ++x) image.setPixel(x, y, qRgb(250, 20, 90));
  }
  QImage reduite(2304, 1296, QImage::Format_RGB32);
  ASSERT_TRUE(ReduitImage(image, reduite));
  EXPECT_LE(Ecart(reduite.pixel(0, 0), qRgb(10, 200, 30)), 3);
  EXPECT_LE(Ecart(reduite.pixel(2303, 600), qRgb(10, 200, 30)), 3);
  EXPECT_LE(Ecart(reduite.pixel(600, 1295), qRgb(10, 200, 30)), 3);
  EXPECT_LE(Ecart(reduite.pixel(1160, 660), qRgb(250, 20, 90)), 3);
  EXPECT_LE(Ecart(reduite.pixel(2303, 1295), qRgb(250, 20, 90)), 3);
}

QByteArray FabriqueJpeg(QSize taille, int sousEchantillon) {
  QImage image(taille, QImage::Format_RGB32);
  for (int y = 0; y < taille.height(); ++y) {
    auto* ligne = reinterpret_cast<QRgb*>(image.scanLine(y));
    const int vert = 2 * y >= taille.height() ? 200 : 60;
    std::fill(ligne, ligne + (taille.width() + 1) / 2, qRgb(40, vert, 128));
    std::fill(ligne + (taille.width() + 1) / 2, ligne + taille.width(), qRgb(220, vert, 128));
  }
  return faux::CompresseJpeg(image.constBits(), taille, static_cast<int>(image.bytesPerLine()), TJPF_BGRX,
                             sousEchantillon, 95);
}

void AttendQuarts(const QImage& image) {
  for (const bool droite : {false, true}) {
    for (const bool bas : {false, true}) {
      const QRgb point = image.pixel(image.width() * (droite ? 3 : 1) / 4, image.height() * (bas ? 3 : 1) / 4);
      EXPECT_LE(Ecart(point, qRgb(droite ? 220 : 40, bas ? 200 : 60, 128)), 4);
    }
  }
}

TEST(JpegTropGrand, IsDecodedWholeAndScaledInEveryWayOfStoringColour) {
  for (const int sousEchantillon : {TJSAMP_420, TJSAMP_422, TJSAMP_444}) {
    for (const auto& [avant, apres] :
         {std::pair(QSize(3840, 2160), QSize(1920, 1080)), std::pair(QSize(2561, 1441), QSize(2306, 1298))}) {
      const QByteArray jpeg = FabriqueJpeg(avant, sousEchantillon);
      DecodeurJpeg decodeur;
      ASSERT_EQ(decodeur.Taille(Octets(jpeg)), avant);
      PlansPropres entiere;
      ASSERT_TRUE(entiere.DecodeJpeg(decodeur, Octets(jpeg), avant));
      ReserveTrames reserve;
      const auto trame = reserve.Prend();
      ASSERT_TRUE(trame->Reduit(entiere.Plans(), TailleRetenue(avant)));
      trame->Prepare();
      EXPECT_EQ(trame->Taille(), apres);
      AttendQuarts(trame->Entiere());
      const TrameBrute echantillons = trame->Echantillons({});
      EXPECT_EQ(QSize(echantillons.Largeur, echantillons.Hauteur), apres);
    }
  }
}

}  // namespace
}  // namespace vaktor
