// SPDX-License-Identifier: GPL-3.0-or-later
// Frames that hold their samples only: the comparison sees in them what it sees in the whole picture.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <optional>
#include <random>
#include <vector>

#include "engine/comparison/frame_comparison.h"
#include "engine/engine_fixture.h"
#include "engine/plain_comparison.h"

namespace vaktor {
namespace {

/// The samples of a picture, in memory of exactly their size: the last row ends with its last sample.
class Serree {
 public:
  Serree(const TrameBrute& entiere, PhaseEchantillons phase) {
    constexpr qsizetype kPas = kPasEchantillon;
    const qint32 colonnes = std::max(0, EchantillonsParmi(entiere.Largeur - phase.X));
    const qint32 lignes = std::max(0, EchantillonsParmi(entiere.Hauteur - phase.Y));
    const qsizetype part = (qsizetype{4} * colonnes + kPas - 1) / kPas;
    const qsizetype avance = (kPas - 1) * part;
    Octets_.resize(
        static_cast<std::size_t>(avance + (lignes > 0 ? kPas * part * (lignes - 1) + qsizetype{4} * colonnes : 0)));
    for (qint32 ligne = 0; ligne < lignes; ++ligne) {
      for (qint32 colonne = 0; colonne < colonnes; ++colonne) {
        std::memcpy(Octets_.data() + avance + kPas * part * ligne + qsizetype{4} * colonne,
                    entiere.Bits + (phase.Y + kPas * ligne) * entiere.OctetsParLigne + 4 * (phase.X + kPas * colonne),
                    4);
      }
    }
    Trame = {Octets_.data() + avance - phase.Y * part, part, entiere.Largeur, entiere.Hauteur, true};
  }

  TrameBrute Trame;

 private:
  std::vector<uchar> Octets_;
};

class EchantillonsSerres : public testing::TestWithParam<JeuInstructions> {
 protected:
  void SetUp() override {
    if (!ConnaitJeu(GetParam())) GTEST_SKIP() << "this processor does not know these instructions";
  }
  qint32 Tire(qint32 min, qint32 max) { return std::uniform_int_distribution<qint32>(min, max)(Hasard_); }

  void Verifie(const TrameBrute& entiere, const ZoneDetection& zone, std::vector<qint32>& table) {
    const Serree serree(entiere, {.X = PhaseDe(zone.Gauche), .Y = PhaseDe(zone.Haut)});
    std::vector<qint32> autre = table;
    const auto nombre = static_cast<qint32>(table.size()) - TableEchantillons::kMarge;
    const qint32 tolerance = Tire(0, 2) == 0 ? 1 : Tire(1, 7000000);
    const auto attendu = CompareTrame(JeuInstructions::kPortable, entiere, zone, tolerance, {table.data(), nombre}, 0);
    const auto vu = CompareTrame(GetParam(), serree.Trame, zone, tolerance, {autre.data(), nombre}, 0);
    faux::AttendMemeResultat(vu, attendu);
    EXPECT_TRUE(std::equal(table.begin(), table.begin() + nombre, autre.begin()));
  }

  std::mt19937 Hasard_{20261121};
};

TEST_P(EchantillonsSerres, GiveTheSameAnswerAndTableOnRandomZones) {
  for (int tour = 0; tour < 600; ++tour) {
    const qint32 largeur = Tire(1, tour % 5 == 0 ? 4 : 220);
    const qint32 hauteur = Tire(1, tour % 7 == 0 ? 3 : 40);
    std::vector<uchar> octets(static_cast<std::size_t>(4 * largeur) * static_cast<std::size_t>(hauteur));
    std::vector<qint32> table(static_cast<std::size_t>(Tire(1, 1500) + TableEchantillons::kMarge));
    for (int image = 0; image < 3; ++image) {
      for (uchar& octet : octets) octet = static_cast<uchar>(Tire(0, 255));
      const ZoneDetection zone{.Gauche = Tire(-40, largeur + 5),
                               .Droite = Tire(-40, largeur + 50),
                               .Haut = Tire(-20, hauteur + 4),
                               .Bas = Tire(-20, hauteur + 20)};
      SCOPED_TRACE(testing::Message() << largeur << "x" << hauteur << " zone " << zone.Gauche << ".." << zone.Droite
                                      << " " << zone.Haut << ".." << zone.Bas);
      Verifie({octets.data(), qsizetype{4} * largeur, largeur, hauteur}, zone, table);
      if (HasFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Jeux, EchantillonsSerres,
    testing::Values(JeuInstructions::kPortable, JeuInstructions::kSse41, JeuInstructions::kAvx2),
    [](const auto& essai) {
      return std::string(std::array{"Portable", "Sse41", "Avx2"}.at(static_cast<std::size_t>(essai.param)));
    });

/// A frame whose pixels find no memory.
class TrameSansMemoire : public TrameDifferee {
 public:
  explicit TrameSansMemoire(QSize taille) : Taille_(taille) {}
  QSize Taille() const override { return Taille_; }
  TrameBrute Echantillons(PhaseEchantillons) override { return {nullptr, 0, Taille_.width(), Taille_.height(), true}; }
  const QImage& Entiere() override { return Aucune_; }

 private:
  QSize Taille_;
  QImage Aucune_;
};

/// A frame that notes what is asked of it.
class TrameNotee : public TrameDifferee {
 public:
  explicit TrameNotee(const QImage& image) : Image_(image) {}
  QSize Taille() const override { return Image_.size(); }
  TrameBrute Echantillons(PhaseEchantillons phase) override {
    Demandes.push_back(phase);
    Serree_.emplace(PixelsDe(Image_), phase);
    return Serree_->Trame;
  }
  const QImage& Entiere() override {
    ++Regards;
    return Image_;
  }

  std::vector<PhaseEchantillons> Demandes;
  int Regards = 0;

 private:
  QImage Image_;
  std::optional<Serree> Serree_;
};

class AnalyseDifferee : public BancEssai {
 protected:
  std::shared_ptr<TrameNotee> TrameDe(const QImage& image) {
    auto trame = std::make_shared<TrameNotee>(image);
    Pilote.SuivanteDifferee = trame;
    Tic();
    return trame;
  }
};

TEST_F(AnalyseDifferee, ReadsTheSamplesAndLooksAtNoFrame) {
  DemarreSurNoir();
  Engin.ChoisitModeZoom(true);
  PoseZone(4, -1, 40, 30);
  const auto noire = TrameDe(Unie(0));
  const auto blanche = TrameDe(Unie(qRgb(255, 255, 255)));
  EXPECT_EQ(blanche->Demandes, (std::vector<PhaseEchantillons>{{.X = 1, .Y = 2}}));
  EXPECT_EQ(noire->Regards + blanche->Regards, 0);
  EXPECT_GT(Detection().NbrPoints, 0);
}

TEST_F(AnalyseDifferee, AFrameWithoutMemoryIsNoBlackOneAndAlarmsNobody) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  for (const bool zoom : {true, false}) {
    Engin.ChoisitModeZoom(zoom);
    TrameDe(Unie(qRgb(255, 255, 255)));
    TrameDe(Unie(qRgb(255, 255, 255)));
    const qint32 photos = Actions.Photos;
    Pilote.SuivanteDifferee = std::make_shared<TrameSansMemoire>(QSize(kLargeur, kHauteur));
    Tic();
    EXPECT_EQ(Detection().NbrPoints, 0);
    EXPECT_EQ(Actions.Photos, photos);
    TrameDe(Unie(qRgb(255, 255, 255)));
    EXPECT_EQ(Detection().NbrPoints, 0) << "compared with the last frame that was seen";
    TrameDe(Unie(0));
    EXPECT_EQ(Detection().NbrPoints, 400);
  }
}

// What was seen before the loss still stands in the table.
TEST_F(AnalyseDifferee, AFrameWithoutMemoryBehindALossLeavesTheStoringToTheNext) {
  ArmeSurNoir();
  Pilote.Reprise = true;
  Pilote.SuivanteDifferee = std::make_shared<TrameSansMemoire>(QSize(kLargeur, kHauteur));
  Tic();
  TrameDe(Unie(qRgb(255, 255, 255)));
  EXPECT_EQ(Detection().NbrPoints, 0) << "stored, not compared";
  TrameDe(Unie(0));
  EXPECT_EQ(Detection().NbrPoints, 400);
}

TEST_F(AnalyseDifferee, LooksAtTheWholeFrameForTheViewOfChangedPoints) {
  DemarreSurNoir();
  Engin.ChoisitModeZoom(false);
  const auto trame = TrameDe(Unie(qRgb(255, 255, 255)));
  EXPECT_GT(trame->Regards, 0);
  EXPECT_EQ(Detection().NbrPoints, 400);
}

}  // namespace
}  // namespace vaktor
