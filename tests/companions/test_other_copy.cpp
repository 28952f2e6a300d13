// SPDX-License-Identifier: GPL-3.0-or-later
// Another copy of the program over the same companions, and what an earlier one has left behind.
#include "companions/companion_watch_bench.h"

namespace vaktor::essai {
namespace {

// Another copy of the program ends the companions of this one, and its handles stand in the store by then.
TEST_F(Veille, NothingIsStartedAgainstAnotherCopy) {
  LanceEtUneAutreCopieFinitTout();
  Secondes(600);
  EXPECT_EQ(Journal.filter("relance").size(), 0);
  EXPECT_TRUE(Sante.Dure(Condition::kCasiersPerdus));
  EXPECT_FALSE(Journal.contains("republie"));
}

TEST_F(Veille, WhenTheOtherCopyHasEndedTheCompanionsAreStartedAgain) {
  LanceEtUneAutreCopieFinitTout();
  Secondes(600);
  Canal.Presents.clear();
  Secondes(VeilleCompagnons::kRegardCasiers);
  EXPECT_EQ(Journal.filter("relance").size(), 3);
  EXPECT_LT(Journal.indexOf("republie"), Journal.indexOf("relance " + kFtp)) << "they read the store at once";
  EXPECT_FALSE(Sante.Dure(Condition::kCasiersPerdus));
}

// A copy that was killed leaves its companions running, and they register with us.
TEST_F(Veille, WhatAnotherCopyHasLeftBehindIsEndedBeforeOursIsStarted) {
  LanceEtUneAutreCopieFinitTout();
  Secondes(60);
  EXPECT_EQ(Journal.filter("balaie").size(), 0) << "it runs";
  BalaiMuet = true;
  Canal.Presents.clear();
  Secondes(VeilleCompagnons::kRegardCasiers);
  EXPECT_EQ(Journal.filter("balaie"), QStringList({"balaie FTP", "balaie MAIL", "balaie SON"}));
  EXPECT_EQ(Journal.filter("relance").size(), 0);
  for (const auto& fini : std::exchange(Balais, {})) fini();
  EXPECT_EQ(Journal.filter("relance").size(), 3);
  Processus.Finit(kSon);
  Secondes(30);
  EXPECT_EQ(Journal.filter("balaie").size(), 3) << "once";
  EXPECT_EQ(Journal.filter("relance").size(), 4);
}

TEST_F(Veille, ASweepThatDoesNotEndKeepsNobodyFromBeingStarted) {
  LanceEtInscrit();
  Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
  Canal.Presents = {5001};
  Processus.Finit(kSon);
  Secondes(60);
  BalaiMuet = true;
  Canal.Presents.clear();
  Secondes(VeilleCompagnons::kRegardCasiers);
  ASSERT_EQ(Balais.size(), 1);
  Temps.Avance(VeilleCompagnons::kBalayageMax - 1);
  EXPECT_EQ(Relances(kSon), 0);
  Temps.Avance(1);
  EXPECT_EQ(Relances(kSon), 1);
  Balais.first()();
  EXPECT_EQ(Relances(kSon), 1) << "it is running";
}

TEST_F(Veille, ASweepThatEndsAfterTheProgramStartsNothing) {
  LanceEtInscrit();
  Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
  Canal.Presents = {5001};
  Processus.Finit(kSon);
  Secondes(60);
  BalaiMuet = true;
  Canal.Presents.clear();
  Secondes(VeilleCompagnons::kRegardCasiers);
  Regles.Arrete();
  ASSERT_EQ(Balais.size(), 1);
  Balais.first()();
  EXPECT_EQ(Relances(kSon), 0);
}

TEST_F(Veille, AnotherCopyIsNoticedBeforeItsCompanionsAreMissed) {
  LanceEtInscrit();
  Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
  Canal.Presents = {5001, 5002, 5003};
  Secondes(VeilleCompagnons::kRegardCasiers);
  EXPECT_EQ(Sante.Details.keys(), QList<Condition>{Condition::kCasiersPerdus});
}

TEST_F(Veille, WithoutAnAnswerOfTheStoreNothingIsStartedAndNobodyWaits) {
  LanceEtInscrit();
  Lecteur.Muet = true;
  Processus.Finit(kSon);
  Secondes(50);
  EXPECT_EQ(Lecteur.Lectures, 1) << "one question at a time to a disk that does not answer";
  Secondes(550);
  EXPECT_EQ(Relances(kSon), 0);
  EXPECT_EQ(Lecteur.Lectures, 10) << "and the next one a minute later";
  Lecteur.Muet = false;
  Lecteur.Repond();
  EXPECT_EQ(Relances(kSon), 1);
}

TEST_F(Veille, AStoreThatCannotBeReadKeepsNobodyFromBeingStarted) {
  LanceEtInscrit();
  Lecteur.Lues.reset();
  Processus.Finit(kSon);
  Secondes(1);
  EXPECT_EQ(Relances(kSon), 1);
}

}  // namespace
}  // namespace vaktor::essai
