// SPDX-License-Identifier: GPL-3.0-or-later
// The pixels of the comparison alone are the same bytes as in the whole picture.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>

#include "platform/capture/frames/sample_conversion.h"
#include "support/guarded_memory.h"

namespace vaktor {
namespace {

/// Planes in memory of exactly their size, whose end is guarded: no byte behind them is read.
class Planaire {
 public:
  Planaire(GstVideoFormat format, QSize taille, GstVideoColorMatrix matrice, bool pleine) {
    Plans = {format, matrice, pleine, taille.width(), taille.height(), {}};
    const int enLargeur = format == GST_VIDEO_FORMAT_Y444 ? 1 : 2;
    const int enHauteur = format == GST_VIDEO_FORMAT_I420 || format == GST_VIDEO_FORMAT_YV12 ? 2 : 1;
    std::mt19937 hasard(11);
    for (std::size_t i = 0; i < 3; ++i) {
      const int largeur = i == 0 ? taille.width() : (taille.width() + enLargeur - 1) / enLargeur;
      const int hauteur = i == 0 ? taille.height() : (taille.height() + enHauteur - 1) / enHauteur;
      const auto nombre = static_cast<std::size_t>(largeur) * static_cast<std::size_t>(hauteur);
      Octets_.at(i) = std::make_unique<essai::MemoireGardee>(nombre);
      quint8* octets = Octets_.at(i)->Octets();
      for (std::size_t j = 0; j < nombre; ++j) octets[j] = static_cast<quint8>(hasard());
      Plans.Plans.at(i) = {octets, largeur};
    }
  }

  PlansImage Plans;

 private:
  std::array<std::unique_ptr<essai::MemoireGardee>, 3> Octets_;
};

void Compare(const PlansImage& plans, PhaseEchantillons phase) {
  const QSize taille(plans.Largeur, plans.Hauteur);
  QImage image(taille, QImage::Format_RGB32);
  ASSERT_TRUE(ConvertitImage(plans, image));
  const qint32 colonnes = std::max(0, EchantillonsParmi(taille.width() - phase.X));
  const qint32 lignes = std::max(0, EchantillonsParmi(taille.height() - phase.Y));
  const auto vus =
      std::make_unique<quint8[]>(static_cast<std::size_t>(4 * colonnes) * static_cast<std::size_t>(lignes));
  ASSERT_TRUE(ConvertitEchantillons(plans, phase, {vus.get(), qsizetype{4} * colonnes}));
  for (qint32 ligne = 0; ligne < lignes; ++ligne) {
    for (qint32 colonne = 0; colonne < colonnes; ++colonne) {
      const auto* attendu =
          image.constScanLine(phase.Y + kPasEchantillon * ligne) + qsizetype{4} * (phase.X + kPasEchantillon * colonne);
      const auto* vu = vus.get() + qsizetype{4} * (qsizetype{ligne} * colonnes + colonne);
      ASSERT_EQ(std::memcmp(vu, attendu, 4), 0) << "sample " << colonne << ", " << ligne << " of " << taille.width()
                                                << "x" << taille.height() << " from " << phase.X << ", " << phase.Y;
    }
  }
}

void CompareToutes(const PlansImage& plans) {
  for (qint32 y = 0; y < kPasEchantillon; ++y) {
    for (qint32 x = 0; x < kPasEchantillon; ++x) Compare(plans, {.X = x, .Y = y});
  }
}

class ConversionEchantillons : public testing::TestWithParam<GstVideoFormat> {};

TEST_P(ConversionEchantillons, GivesTheBytesOfTheWholePicture) {
  for (const QSize taille : {QSize(1, 1), QSize(2, 3), QSize(48, 6), QSize(67, 33), QSize(640, 9), QSize(1537, 5),
                             QSize(3073, 4), QSize(4613, 2)}) {
    const Planaire trame(GetParam(), taille, GST_VIDEO_COLOR_MATRIX_BT601, false);
    CompareToutes(trame.Plans);
    if (HasFatalFailure()) return;
  }
}

TEST_P(ConversionEchantillons, GivesThemForEveryWidth) {
  for (int largeur = 1; largeur <= 160; ++largeur) {
    const Planaire trame(GetParam(), {largeur, 4}, GST_VIDEO_COLOR_MATRIX_BT709, true);
    CompareToutes(trame.Plans);
    if (HasFatalFailure()) return;
  }
}

TEST_P(ConversionEchantillons, GivesThemInEveryMatrixAndRange) {
  for (const GstVideoColorMatrix matrice :
       {GST_VIDEO_COLOR_MATRIX_BT601, GST_VIDEO_COLOR_MATRIX_BT709, GST_VIDEO_COLOR_MATRIX_BT2020}) {
    for (const bool pleine : {false, true}) {
      const Planaire trame(GetParam(), {131, 10}, matrice, pleine);
      Compare(trame.Plans, {.X = 1, .Y = kPasEchantillon - 1});
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, ConversionEchantillons,
                         testing::Values(GST_VIDEO_FORMAT_I420, GST_VIDEO_FORMAT_YV12, GST_VIDEO_FORMAT_Y42B,
                                         GST_VIDEO_FORMAT_Y444),
                         [](const auto& essai) { return std::string(gst_video_format_to_string(essai.param)); });

}  // namespace
}  // namespace vaktor
