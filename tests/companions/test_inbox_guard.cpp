// SPDX-License-Identifier: GPL-3.0-or-later
// Whose inboxes stand in the store.
#include <gtest/gtest.h>

#include <new>

#include "base/failure.h"
#include "companions/companion_fakes.h"
#include "fakes/fake_health_report.h"

namespace vaktor::essai {
namespace {

struct Garde : testing::Test {
  QStringList Journal;
  CanalFaux Canal{Journal};
  faux::SanteFausse Sante;
  LecteurCasiersFaux Lecteur;
  bool Plein = false;
  bool SansMemoire = false;
  int Demandes = 0;
  std::function<void(int fois)> Siennes;  ///< when the handles are asked for
  GardeCasiers Regles{PortsGarde{Lecteur, Canal, Sante,
                                 [this] {
                                   if (Siennes) Siennes(++Demandes);
                                   return PoigneesPubliees{1001, 1002, 1003};
                                 },
                                 [this] {
                                   Journal << QStringLiteral("republie");
                                   if (SansMemoire) throw std::bad_alloc();
                                   if (Plein) throw Echec(kAccesFichier, QStringLiteral("disk full"));
                                 }}};
  QString Regarde() {
    QString dit = QStringLiteral("nothing");
    Regles.Regarde([&dit](bool siennes) { dit = siennes ? QStringLiteral("ours") : QStringLiteral("lost"); });
    return dit;
  }
};

TEST_F(Garde, OursAreOurs) {
  EXPECT_EQ(Regarde(), "ours");
  EXPECT_TRUE(Sante.Debuts.isEmpty());
  EXPECT_TRUE(Journal.isEmpty());
}

TEST_F(Garde, AnotherProgramThatAnswersHasTakenThem) {
  Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
  Canal.Presents = {1001, 1002, 1003, 5001, 5002, 5003};
  EXPECT_EQ(Regarde(), "lost");
  EXPECT_TRUE(Sante.Dure(Condition::kCasiersPerdus));
  EXPECT_TRUE(Journal.isEmpty()) << "nothing is written against it";
}

TEST_F(Garde, OneThatAnswersIsEnoughWhereNobodyCanTellOfAnother) {
  Lecteur.Lues = PoigneesPubliees{5001, 5002, 1003};
  Canal.Inconnus = {5001};
  Canal.Presents = {5002};
  EXPECT_EQ(Regarde(), "lost");
  EXPECT_TRUE(Sante.Dure(Condition::kCasiersPerdus));
}

TEST_F(Garde, OneThatIsTakenIsEnough) {
  Lecteur.Lues = PoigneesPubliees{1001, 5002, 1003};
  Canal.Presents = {1001, 1003, 5002};
  EXPECT_EQ(Regarde(), "lost");
}

// A file that was deleted or put back, and a copy that has ended: its handles stay in the store.
TEST_F(Garde, HandlesThatNobodyAnswersToAreReplaced) {
  for (const PoigneesPubliees& lues : {PoigneesPubliees{}, PoigneesPubliees{5001, 5002, 5003}}) {
    Journal.clear();
    Lecteur.Lues = lues;
    EXPECT_EQ(Regarde(), "ours");
    EXPECT_EQ(Journal, QStringList("republie"));
    EXPECT_FALSE(Sante.Dure(Condition::kCasiersPerdus));
  }
}

TEST_F(Garde, AStoreThatCannotBeWrittenLeavesThemLost) {
  Lecteur.Lues = PoigneesPubliees{};
  Plein = true;
  EXPECT_EQ(Regarde(), "lost");
  EXPECT_EQ(Sante.Details.value(Condition::kCasiersNonEcrits), "disk full");
  EXPECT_FALSE(Sante.Dure(Condition::kCasiersPerdus)) << "no other copy was started";
  Plein = false;
  EXPECT_EQ(Regarde(), "ours");
  EXPECT_FALSE(Sante.Dure(Condition::kCasiersNonEcrits));
}

TEST_F(Garde, AFullDiskBehindACopyThatHasEndedIsNoCopyAndACopyIsNoFullDisk) {
  Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
  Canal.Presents = {5001, 5002, 5003};
  EXPECT_EQ(Regarde(), "lost");
  Plein = true;
  Canal.Presents.clear();
  EXPECT_EQ(Regarde(), "lost");
  EXPECT_FALSE(Sante.Dure(Condition::kCasiersPerdus));
  EXPECT_TRUE(Sante.Dure(Condition::kCasiersNonEcrits));
  Canal.Presents = {5001, 5002, 5003};
  EXPECT_EQ(Regarde(), "lost");
  EXPECT_TRUE(Sante.Dure(Condition::kCasiersPerdus));
  EXPECT_FALSE(Sante.Dure(Condition::kCasiersNonEcrits));
}

TEST_F(Garde, WhateverTheWritingThrowsTheNextLookIsAnswered) {
  Lecteur.Lues = PoigneesPubliees{};
  SansMemoire = true;
  EXPECT_EQ(Regarde(), "lost");
  EXPECT_TRUE(Sante.Dure(Condition::kCasiersNonEcrits));
  SansMemoire = false;
  EXPECT_EQ(Regarde(), "ours");
}

TEST_F(Garde, ALookThatThrowsCostsThatLookAlone) {
  Siennes = [](int fois) {
    if (fois == 1) throw std::bad_alloc();
  };
  QStringList dits;
  EXPECT_THROW(Regles.Regarde([&](bool) { dits << QStringLiteral("first"); }), std::bad_alloc);
  EXPECT_FALSE(Regles.EstEnCours());
  Regles.Regarde([&](bool) { dits << QStringLiteral("second"); });
  EXPECT_EQ(dits, QStringList({"first", "second"})) << "whoever waited is told by the next one";
}

// A disk that is silent for good, or an answer that was lost.
TEST_F(Garde, ALookWithoutAnAnswerIsGivenUpAfterAMinuteAndTheNextOneTellsThoseWhoWait) {
  Lecteur.Muet = Lecteur.OublieRien = true;
  QStringList dits;
  Regles.Regarde([&](bool) { dits << QStringLiteral("first"); });
  for (int i = 1; i < GardeCasiers::kAbandon; ++i) Regles.Tic();
  EXPECT_TRUE(Regles.EstEnCours());
  Regles.Tic();
  EXPECT_FALSE(Regles.EstEnCours());
  Lecteur.Lues = PoigneesPubliees{};
  Lecteur.Repond();
  EXPECT_TRUE(dits.isEmpty() && Journal.isEmpty()) << "its answer comes too late, and from long ago";
  Regles.Regarde([&](bool) { dits << QStringLiteral("second"); });
  EXPECT_EQ(Lecteur.Lectures, 2);
  Lecteur.Repond();
  EXPECT_EQ(dits, QStringList({"first", "second"}));
}

TEST_F(Garde, AStoreThatCannotBeReadTellsNothingNew) {
  Lecteur.Lues.reset();
  EXPECT_EQ(Regarde(), "ours");
  Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
  Canal.Presents = {5001};
  EXPECT_EQ(Regarde(), "lost");
  Lecteur.Lues.reset();
  EXPECT_EQ(Regarde(), "lost");
}

TEST_F(Garde, WhoeverAsksDuringALookGetsALaterOne) {
  Lecteur.Muet = true;
  QStringList dits;
  Regles.Regarde([&](bool) { dits << QStringLiteral("first"); });
  Regles.Regarde([&](bool) { dits << QStringLiteral("second"); });
  EXPECT_EQ(Lecteur.Lectures, 1);
  Lecteur.Repond();
  EXPECT_EQ(dits, QStringList("first"));
  EXPECT_EQ(Lecteur.Lectures, 2);
  Lecteur.Repond();
  EXPECT_EQ(dits, QStringList({"first", "second"}));
  EXPECT_FALSE(Regles.EstEnCours());
}

TEST_F(Garde, AfterTheEndNobodyIsToldAndNothingWritten) {
  Lecteur.Muet = true;
  Lecteur.Lues = PoigneesPubliees{};
  EXPECT_EQ(Regarde(), "nothing");
  Regles.Arrete();
  Lecteur.Repond();
  EXPECT_TRUE(Journal.isEmpty());
}

TEST_F(Garde, ACopyThatNobodyCanAskAfterIsNotPublishedOver) {
  Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
  Canal.SansDescripteur = true;
  EXPECT_EQ(Regarde(), "ours") << "as before";
  EXPECT_TRUE(Journal.isEmpty());
  Canal.SansDescripteur = false;
  Canal.Presents = {5001, 5002, 5003};
  EXPECT_EQ(Regarde(), "lost");
  Canal.SansDescripteur = true;
  EXPECT_EQ(Regarde(), "lost") << "as before";
  EXPECT_TRUE(Sante.Dure(Condition::kCasiersPerdus));
  EXPECT_TRUE(Journal.isEmpty());
}

}  // namespace
}  // namespace vaktor::essai
