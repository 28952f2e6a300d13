// SPDX-License-Identifier: GPL-3.0-or-later
// The fast comparison against the plain one: same answer, same table, whatever picture, zone and tolerance.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "engine/comparison/frame_comparison.h"
#include "engine/comparison/frame_comparison_bands.h"
#include "engine/plain_comparison.h"

namespace vaktor {
namespace {

constexpr std::array kJeux = {JeuInstructions::kPortable, JeuInstructions::kSse41, JeuInstructions::kAvx2};
constexpr qint32 kTemoin = 0x5a5a5a5a;  // what lies behind the table and must stay

/// A picture in memory of exactly its size, so that the address sanitizer sees each byte read beside it.
struct Photo {
  Photo(qint32 largeur, qint32 hauteur, qint32 marge)
      : OctetsParLigne(4 * largeur + marge),
        Octets(static_cast<std::size_t>(OctetsParLigne * (hauteur - 1) + qsizetype{4} * largeur)),
        Trame{Octets.data(), OctetsParLigne, largeur, hauteur} {}
  Photo(const Photo&) = delete;
  Photo& operator=(const Photo&) = delete;

  qsizetype OctetsParLigne;
  std::vector<uchar> Octets;
  TrameBrute Trame;
};

struct Essai {
  std::vector<qint32> Table;  // as the plain comparison keeps it
  std::vector<qint32> Rapide;

  explicit Essai(qint32 nombre)
      : Table(static_cast<std::size_t>(nombre)), Rapide(static_cast<std::size_t>(nombre + TableEchantillons::kMarge)) {}

  void Verifie(JeuInstructions jeu, const TrameBrute& trame, const ZoneDetection& zone, qint32 tolerance,
               qint32 premierRang) {
    std::copy(Table.begin(), Table.end(), Rapide.begin());
    std::fill(Rapide.begin() + static_cast<qsizetype>(Table.size()), Rapide.end(), kTemoin);
    std::vector<qint32> attendue = Table;
    const ResultatComparaison juge = faux::CompareNaivement(trame, zone, tolerance, attendue, premierRang);
    const TableEchantillons table{Rapide.data(), static_cast<qint32>(Table.size())};
    const ResultatComparaison vu = CompareTrame(jeu, trame, zone, tolerance, table, premierRang);
    faux::AttendMemeResultat(vu, juge);
    EXPECT_TRUE(std::equal(attendue.begin(), attendue.end(), Rapide.begin()));
    for (std::size_t i = Table.size(); i < Rapide.size(); ++i) EXPECT_EQ(Rapide[i], kTemoin);
  }
};

class Comparaison : public testing::TestWithParam<JeuInstructions> {
 protected:
  void SetUp() override {
    if (!ConnaitJeu(GetParam())) GTEST_SKIP() << "this processor does not know these instructions";
  }

  qint32 Tire(qint32 min, qint32 max) { return std::uniform_int_distribution<qint32>(min, max)(Hasard); }

  qint32 TireTolerance() {
    constexpr std::array kBornes = {-1, 0, 1, 255, 256, 65535, 65536, 6999999, 7000000, 0xffffff, 0x1000000};
    const qint32 sorte = Tire(0, 3);
    if (sorte == 0) return kBornes.at(static_cast<std::size_t>(Tire(0, kBornes.size() - 1)));
    if (sorte == 1) return std::numeric_limits<qint32>::max();
    return Tire(1, sorte == 2 ? 7000000 : 70000);
  }

  /// Fills a picture so that differences of every size occur: some bytes of the last one are kept.
  void Peint(Photo& photo) {
    const qint32 garde = Tire(0, 100);
    for (uchar& octet : photo.Octets) {
      if (Tire(0, 99) >= garde) octet = static_cast<uchar>(Tire(0, 255));
    }
  }

  std::mt19937 Hasard{20260101};
};

TEST_P(Comparaison, AgreesWithThePlainOneOnRandomPicturesAndZones) {
  for (int tour = 0; tour < 400; ++tour) {
    const qint32 largeur = Tire(1, tour % 7 == 0 ? 3 : 150);
    const qint32 hauteur = Tire(1, tour % 5 == 0 ? 2 : 40);
    Photo photo(largeur, hauteur, 4 * Tire(0, 3));
    Essai essai(Tire(1, 2000));
    for (int image = 0; image < 4; ++image) {
      Peint(photo);
      // Inside, outside, partly outside, and with edges in the wrong order.
      const ZoneDetection zone{.Gauche = Tire(-60, largeur + 10),
                               .Droite = Tire(-60, largeur + 60),
                               .Haut = Tire(-20, hauteur + 5),
                               .Bas = Tire(-20, hauteur + 30)};
      SCOPED_TRACE(testing::Message() << largeur << "x" << hauteur << " zone " << zone.Gauche << ".." << zone.Droite
                                      << " " << zone.Haut << ".." << zone.Bas);
      essai.Verifie(GetParam(), photo.Trame, zone, TireTolerance(), Tire(0, static_cast<qint32>(essai.Table.size())));
      std::copy_n(essai.Rapide.begin(), essai.Table.size(), essai.Table.begin());
      if (HasFailure()) return;
    }
  }
}

TEST_P(Comparaison, AgreesOnEveryWidthOfAWholePicture) {
  for (qint32 largeur = 1; largeur <= 130; ++largeur) {
    Photo photo(largeur, 7, 0);
    Essai essai(400);
    for (const qint32 coin : {0, 1}) {
      Peint(photo);
      const ZoneDetection zone{.Gauche = coin, .Droite = largeur, .Haut = coin, .Bas = 7};
      SCOPED_TRACE(testing::Message() << "width " << largeur << " corner " << coin);
      essai.Verifie(GetParam(), photo.Trame, zone, TireTolerance(), 0);
      std::copy_n(essai.Rapide.begin(), essai.Table.size(), essai.Table.begin());
    }
  }
}

TEST_P(Comparaison, AgreesWhenNothingOrEverythingChanges) {
  Photo photo(97, 31, 0);
  Essai essai(1000);
  const ZoneDetection zone{.Gauche = 0, .Droite = 97, .Haut = 0, .Bas = 31};
  for (const uchar octet : {uchar{0}, uchar{0}, uchar{255}, uchar{255}, uchar{0}}) {
    std::fill(photo.Octets.begin(), photo.Octets.end(), octet);
    essai.Verifie(GetParam(), photo.Trame, zone, 7000000, 0);
    std::copy_n(essai.Rapide.begin(), essai.Table.size(), essai.Table.begin());
  }
}

// Changes of a row are counted in bytes, which hold 255 groups of samples. Wider pictures go another way.
TEST_P(Comparaison, CountsRowsOfManyChangesOnBothSidesOfTheWidestRowOfVectors) {
  constexpr qint32 kLargeurMax = kPasEchantillon * kGroupe * kGroupesMax;
  for (const qint32 largeur : {kLargeurMax - 50, kLargeurMax - 2, kLargeurMax, kLargeurMax + 1, kLargeurMax + 60}) {
    Photo photo(largeur, 4, 0);
    Essai essai(2 * EchantillonsParmi(largeur));
    std::fill(photo.Octets.begin(), photo.Octets.end(), uchar{9});
    SCOPED_TRACE(testing::Message() << "width " << largeur);
    essai.Verifie(GetParam(), photo.Trame, {.Gauche = 0, .Droite = largeur - 1, .Haut = 0, .Bas = 3}, 1, 0);
  }
}

TEST_P(Comparaison, WidensTheBoxByEachRowThatReachesFurther) {
  Photo photo(150, 19, 0);
  const ZoneDetection zone{.Gauche = -6, .Droite = 155, .Haut = 0, .Bas = 18};
  Essai essai(54 * 7);
  essai.Verifie(GetParam(), photo.Trame, zone, 1, 0);
  std::copy_n(essai.Rapide.begin(), essai.Table.size(), essai.Table.begin());
  // Rows 0, 3, 6...: in the middle, nowhere, further left, further right, between, at both ends, nowhere.
  constexpr std::array<std::pair<qint32, qint32>, 6> kPoints = {
      {{0, 72}, {6, 69}, {9, 93}, {12, 84}, {15, 0}, {15, 147}}};
  for (const auto& [y, x] : kPoints) {
    photo.Octets[static_cast<std::size_t>(y * photo.OctetsParLigne + qsizetype{4} * x)] = 200;
    essai.Verifie(GetParam(), photo.Trame, zone, 1, 0);
  }
}

TEST_P(Comparaison, StopsAtTheEndOfTheTableInTheMiddleOfARow) {
  Photo photo(60, 30, 0);
  for (qint32 nombre = 1; nombre < 45; ++nombre) {
    Peint(photo);
    Essai essai(nombre);
    essai.Verifie(GetParam(), photo.Trame, {.Gauche = 1, .Droite = 60, .Haut = 1, .Bas = 30}, 1000, 0);
  }
}

TEST_P(Comparaison, TakesZonesAtTheEndsOfTheNumbers) {
  Photo photo(9, 9, 0);
  Peint(photo);
  Essai essai(50);
  constexpr qint32 kMin = std::numeric_limits<qint32>::min();
  constexpr qint32 kMax = std::numeric_limits<qint32>::max();
  essai.Verifie(GetParam(), photo.Trame, {.Gauche = kMin, .Droite = kMax, .Haut = kMin, .Bas = kMax}, 1, 0);
  essai.Verifie(GetParam(), photo.Trame, {.Gauche = kMax - 7, .Droite = kMax, .Haut = 0, .Bas = 8}, 1, 0);
  essai.Verifie(GetParam(), photo.Trame, {.Gauche = kMin, .Droite = kMin + 7, .Haut = kMax - 3, .Bas = kMax}, 1, 0);
}

TEST_P(Comparaison, ReadsEachRowAnewWhenRowsAreTheSameMemory) {
  std::vector<uchar> ligne(std::size_t{4} * 25, 7);
  Essai essai(100);
  const TrameBrute trame{ligne.data(), 0, 25, 12};
  essai.Verifie(GetParam(), trame, {.Gauche = 0, .Droite = 25, .Haut = 0, .Bas = 12}, 1, 0);
}

TEST_P(Comparaison, DoesNotLookAtTheFourthByte) {
  Photo photo(50, 4, 0);
  Essai essai(100);
  const TableEchantillons table{essai.Rapide.data(), 100};
  const ZoneDetection zone{.Gauche = 0, .Droite = 49, .Haut = 0, .Bas = 3};
  for (std::size_t i = 3; i < photo.Octets.size(); i += 4) photo.Octets[i] = static_cast<uchar>(i);
  EXPECT_EQ(CompareTrame(GetParam(), photo.Trame, zone, 1, table, 0).NbrPoints, 0);
}

TEST_P(Comparaison, MarksTheChangedSamplesInTheOrderOfTheScan) {
  constexpr qint32 kPas = kPasEchantillon;
  constexpr qint32 kCote = 2 * kPas + 1;
  Photo photo(kCote, kCote, 0);
  std::vector<qint32> entrees(20 + TableEchantillons::kMarge);
  const auto change = [&](qint32 x, qint32 y) {
    photo.Octets[std::size_t{4} * static_cast<quint32>(y * kCote + x)] = 200;
  };
  change(2 * kPas, kPas);
  change(0, 2 * kPas);
  std::vector<std::pair<qint32, qint32>> points;
  const ResultatComparaison resultat =
      CompareEtMarque(photo.Trame, {.Gauche = 0, .Droite = 2 * kPas, .Haut = 0, .Bas = 2 * kPas}, 1,
                      {entrees.data(), 20}, 0, [&](qint32 x, qint32 y) { points.emplace_back(x, y); });
  EXPECT_EQ(resultat.NbrPoints, 2);
  EXPECT_EQ(points, (std::vector<std::pair<qint32, qint32>>{{2 * kPas, kPas}, {0, 2 * kPas}}));
}

std::string NommeJeu(const testing::TestParamInfo<JeuInstructions>& essai) {
  constexpr std::array kNoms = {"Portable", "Sse41", "Avx2"};
  return kNoms.at(static_cast<std::size_t>(essai.param));
}

INSTANTIATE_TEST_SUITE_P(Jeux, Comparaison, testing::ValuesIn(kJeux), NommeJeu);

TEST(InstructionSets, TheChosenOneIsKnownToTheProcessor) {
  EXPECT_TRUE(ConnaitJeu(ChoisitJeu()));
  EXPECT_TRUE(ConnaitJeu(JeuInstructions::kPortable));
}

}  // namespace
}  // namespace vaktor
