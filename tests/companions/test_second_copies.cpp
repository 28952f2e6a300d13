// SPDX-License-Identifier: GPL-3.0-or-later
// Photos for the web site while nobody takes them.
#include <gtest/gtest.h>

#include "companions/companion_fakes.h"

namespace vaktor::essai {
namespace {

struct Copies : testing::Test {
  EtatLiaison Etat;
  bool Prend = false;  // the companion is away
  MesureurFaux Mesureur;
  SecondesCopies Regles{PortsCopies{Etat, [this] { return Prend; }, Mesureur, QStringLiteral("/d/Temp/FTP")}};

  Copies() { Etat.SurveillanceEnCours = Etat.LiveActif = true; }
  /// How many of so many photos get a second copy.
  int Donne(int photos) {
    int copies = 0;
    for (int i = 0; i < photos; ++i) copies += Regles.Demande() ? 1 : 0;
    return copies;
  }
};

TEST_F(Copies, WithItsCompanionThePageAloneDecides) {
  Prend = true;
  EXPECT_EQ(Donne(20000), 20000) << "it keeps to the bounds by itself";
  EXPECT_TRUE(Mesureur.Demandes.isEmpty());
  EXPECT_TRUE(Regles.SontVoulues());
  Etat.LiveActif = false;
  EXPECT_FALSE(Regles.SontVoulues());
}

TEST_F(Copies, WithoutItTheyPauseAtTheCompanionsNumber) {
  Mesureur.Taille = TailleDossier{4990, 49900};
  EXPECT_EQ(Donne(50), 10);
  EXPECT_EQ(Mesureur.Demandes, QStringList("/d/Temp/FTP")) << "the folder is measured, not at each photo";
}

TEST_F(Copies, AndAtItsSize) {
  Mesureur.Taille = TailleDossier{1990, 199'000'000};  // 100,000 bytes each
  EXPECT_EQ(Donne(50), 10);
}

TEST_F(Copies, AnEmptyFolderTakesNoMoreThanBothBounds) {
  Mesureur.Muet = true;  // and one whose disk does not answer
  EXPECT_EQ(Donne(20000), 5000);
}

TEST_F(Copies, TheyGoOnWhenThereIsRoomAgain) {
  Mesureur.Taille = TailleDossier{5000, 50000};
  EXPECT_EQ(Donne(SecondesCopies::kEntreMesures), 0);
  Mesureur.Taille = TailleDossier{4000, 40000};
  EXPECT_EQ(Donne(10), 10);
}

TEST_F(Copies, WhatIsWrittenDuringAMeasurementCounts) {
  Mesureur.Muet = true;
  EXPECT_EQ(Donne(50), 50);
  Mesureur.Taille = TailleDossier{4940, 4940};
  Mesureur.Repond();
  EXPECT_EQ(Donne(50), 10);
}

TEST_F(Copies, AMeasurementThatWasLostIsAskedForAgain) {
  Mesureur.Muet = true;
  Donne(SecondesCopies::kEntreMesures);
  Mesureur.Oublie();
  Mesureur.Muet = false;
  Mesureur.Taille = TailleDossier{5000, 50000};
  EXPECT_EQ(Donne(SecondesCopies::kEntreMesures), 0);
  EXPECT_EQ(Mesureur.Demandes.size(), 2);
}

TEST_F(Copies, ThePageThatWasOnWhenItsCompanionWentGoesOnForThem) {
  Etat.LiveActif = false;
  Etat.PageInterrompue = true;
  EXPECT_TRUE(Regles.SontVoulues());
  EXPECT_EQ(Donne(5), 5);
}

TEST_F(Copies, WhatWasMeasuredIsForgottenWhenItIsBack) {
  Mesureur.Taille = TailleDossier{5000, 50000};
  EXPECT_EQ(Donne(5), 0);
  Prend = true;
  EXPECT_EQ(Donne(1), 1);
  Prend = false;
  Mesureur.Taille = TailleDossier{0, 0};
  EXPECT_EQ(Donne(5), 5);
}

}  // namespace
}  // namespace vaktor::essai
