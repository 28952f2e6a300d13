// SPDX-License-Identifier: GPL-3.0-or-later
// A companion's side of the channel against real sockets, with the watch in virtual time.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "fakes/virtual_timers.h"
#include "modules/common/main_link.h"
#include "support/event_wait.h"
#include "support/without_descriptors.h"

namespace vaktor::essai {
namespace {

struct Lien : testing::Test {
  QTemporaryDir Temporaire;
  DossierCanal Dossier{Temporaire.filePath("vaktor")};
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  QStringList Recus;  // by the main program
  qint32 Hwndvk = 0;
  QStringList Mots;
  int Enregistrements = 0;
  Inscription Comment = Inscription::kRelance;
  int Pertes = 0;
  std::unique_ptr<CasierLocal> Principal = OuvrePrincipal();
  qint64 Maintenant = Dossier.DonneOuverture(Hwndvk).value_or(0);
  LienPrincipal Lien_{PortsLien{Compagnon::kMail, Dossier, Temps, [this] { return Hwndvk; },
                                [this](Commande commande) { Mots << DonneMot(commande); },
                                [this](Inscription comment) { ++Enregistrements, Comment = comment; },
                                [this] { ++Pertes; }, [this] { return Maintenant; }}};
  EmetteurLocal Emetteur{Dossier};

  std::unique_ptr<CasierLocal> OuvrePrincipal() {
    auto sac = std::make_unique<CasierLocal>(Dossier, [this](const QByteArray& m) { Recus << QString::fromUtf8(m); });
    Hwndvk = sac->Poignee();
    return sac;
  }
  QString TexteHwnd() const { return "HWND:" + QString::number(Lien_.Poignee()); }
};

TEST_F(Lien, RegistersAtItsStart) {
  Lien_.Demarre();
  EXPECT_TRUE(Lien_.EstEnregistre());
  EXPECT_EQ(Enregistrements, 1);
  ASSERT_TRUE(AttendQue([this] { return !Recus.isEmpty(); }));
  EXPECT_EQ(Recus, QStringList(TexteHwnd()));
}

TEST_F(Lien, ARegistrationIsEarlyUntilTheStartArgumentsAreDue) {
  Maintenant += LienPrincipal::kDebut - 1;
  Lien_.Demarre();
  EXPECT_EQ(Comment, Inscription::kTot);
  static_assert(LienPrincipal::kDebut < 1000, "the main program waits that long before it carries them out");
}

TEST_F(Lien, ALaterOneIsLate) {
  Maintenant += LienPrincipal::kDebut;
  Lien_.Demarre();
  EXPECT_EQ(Enregistrements, 1);
  EXPECT_EQ(Comment, Inscription::kTard);
}

TEST_F(Lien, AClockThatWasSetBackCountsAsLate) {
  Maintenant -= 5;
  Lien_.Demarre();
  EXPECT_EQ(Comment, Inscription::kTard);
}

// Whatever the clock makes of the age of the inbox.
TEST_F(Lien, StartedAgainItIsNotEarlyAndSoonAnOrdinaryOneAgain) {
  LienPrincipal relance{PortsLien{Compagnon::kMail, Dossier, Temps, [this] { return Hwndvk; }, [](Commande) {},
                                  [this](Inscription comment) { Comment = comment; }, [] {},
                                  [this] { return Maintenant; }, true}};
  Comment = Inscription::kTot;
  relance.Demarre();
  EXPECT_EQ(Comment, Inscription::kRelance);
  Principal = OuvrePrincipal();
  Maintenant = Dossier.DonneOuverture(Hwndvk).value_or(0);
  Temps.Avance(LienPrincipal::kVerification);
  EXPECT_EQ(Comment, Inscription::kTot) << "another main program has not started it again";
}

TEST_F(Lien, AnIntrusionThatWaitedTooLongIsOver) {
  Lien_.Demarre();
  Emetteur.Poste(Lien_.Poignee(), "66");
  Emetteur.Poste(Lien_.Poignee(), "65");
  Maintenant = QDateTime::currentMSecsSinceEpoch() + kDureeInstant + 1000;
  ASSERT_TRUE(AttendQue([this] { return !Mots.isEmpty(); }));
  EXPECT_EQ(Mots, QStringList("Optio")) << "what was saved meanwhile still holds";
  Mots.clear();
  Maintenant = QDateTime::currentMSecsSinceEpoch();
  Emetteur.Poste(Lien_.Poignee(), "66");
  ASSERT_TRUE(AttendQue([this] { return !Mots.isEmpty(); }));
  EXPECT_EQ(Mots, QStringList("Intru"));
}

TEST_F(Lien, RegistersOnceWithTheSameMainProgram) {
  Lien_.Demarre();
  Temps.Avance(100000);
  EXPECT_EQ(Enregistrements, 1);
  EXPECT_EQ(Pertes, 0);
}

TEST_F(Lien, CodesBecomeTheCommandsOfThisCompanion) {
  Lien_.Demarre();
  for (const char* code : {"65", "66", "67"}) Emetteur.Poste(Lien_.Poignee(), code);
  ASSERT_TRUE(AttendQue([this] { return Mots.size() == 3; }));
  EXPECT_EQ(Mots, QStringList({"Optio", "Intru", "Quit*"}));
}

TEST_F(Lien, WhatIsNoCodeOfThisCompanionIsIgnored) {
  Lien_.Demarre();
  for (const char* faux : {"", "0", "69", "70", "-1", "Quit*", "66x", "99999999999999999999"})
    Emetteur.Poste(Lien_.Poignee(), faux);
  Emetteur.Poste(Lien_.Poignee(), "66");
  ASSERT_TRUE(AttendQue([this] { return !Mots.isEmpty(); }));
  EXPECT_EQ(Mots, QStringList("Intru"));
}

TEST_F(Lien, WordsGoUpInOrderAndNoneIsLost) {
  Lien_.Demarre();
  QStringList attendus(TexteHwnd());
  for (int i = 0; i < 100; ++i) {
    attendus << QStringLiteral("Uploa %1").arg(i);
    Lien_.Dis(attendus.last());
  }
  ASSERT_TRUE(AttendQue([&] { return Recus.size() == attendus.size(); }));
  EXPECT_EQ(Recus, attendus);
}

TEST_F(Lien, RegistersAgainWhenTheMainProgramComesBack) {
  Lien_.Demarre();
  Principal.reset();
  Temps.Avance(20000);
  Recus.clear();
  Principal = OuvrePrincipal();
  Temps.Avance(LienPrincipal::kVerification);
  EXPECT_EQ(Enregistrements, 2);
  ASSERT_TRUE(AttendQue([this] { return !Recus.isEmpty(); }));
  EXPECT_EQ(Recus, QStringList(TexteHwnd()));
  Temps.Avance(100000);
  EXPECT_EQ(Pertes, 0) << "the time without a main program starts anew";
}

TEST_F(Lien, GoesOverToAMainProgramThatHasPublishedLater) {
  Lien_.Demarre();
  const auto ancien = std::move(Principal);
  Principal = OuvrePrincipal();
  Temps.Avance(LienPrincipal::kVerification);
  EXPECT_EQ(Enregistrements, 2);
}

TEST_F(Lien, AStaleHandleInTheStoreIsNotTaken) {
  Principal.reset();
  Lien_.Demarre();
  EXPECT_FALSE(Lien_.EstEnregistre());
  Lien_.Dis("Conne");
  Principal = OuvrePrincipal();
  Temps.Avance(LienPrincipal::kVerification);
  EXPECT_EQ(Enregistrements, 1);
}

TEST_F(Lien, GivesUpOnceWhenTheMainProgramIsGoneForGood) {
  Lien_.Demarre();
  Principal.reset();
  Temps.Avance(LienPrincipal::kAbandon - 1);
  EXPECT_EQ(Pertes, 0);
  Temps.Avance(1);
  EXPECT_EQ(Pertes, 1);
  Temps.Avance(1000000);
  EXPECT_EQ(Pertes, 1);
}

TEST_F(Lien, WithoutADescriptorToAskWithItDoesNotGiveUp) {
  Lien_.Demarre();
  {
    const SansDescripteur sans;
    Temps.Avance(qint64{10} * LienPrincipal::kAbandon);
  }
  Temps.Avance(LienPrincipal::kAbandon);
  EXPECT_EQ(Pertes, 0);
  Principal.reset();
  Temps.Avance(LienPrincipal::kAbandon);
  EXPECT_EQ(Pertes, 1);
}

TEST_F(Lien, GivesUpWhenThereNeverWasOne) {
  Principal.reset();
  Hwndvk = 0;
  Lien_.Demarre();
  Temps.Avance(LienPrincipal::kAbandon);
  EXPECT_EQ(Pertes, 1);
}

}  // namespace
}  // namespace vaktor::essai
