// SPDX-License-Identifier: GPL-3.0-or-later
// What waits for a companion that does not read: on real sockets, with the time moved by hand.
#include <gtest/gtest.h>

#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <new>

#include "platform/channel/local_channel.h"
#include "platform/channel/socket_address.h"
#include "support/event_wait.h"

namespace vaktor::essai {
namespace {

struct Attente : testing::Test {
  QTemporaryDir Temporaire;
  DossierCanal Dossier{Temporaire.filePath("vaktor")};
  qint64 Maintenant = 0;
  EmetteurLocal Emetteur{Dossier, [this] { return Maintenant; }};
  QList<QByteArray> Recus;
  /// Reads only while the event loop runs: a companion that is held up otherwise.
  std::unique_ptr<CasierLocal> Fenetre =
      std::make_unique<CasierLocal>(Dossier, [this](const QByteArray& message) { Recus << message; });
  const qint32 Poignee = Fenetre->Poignee();

  void Poste(const QByteArray& code, Tenue tenue) { Emetteur.PosteCommande(Poignee, code, tenue); }
  void Optio() { Poste("65", Tenue::kGardee); }
  void Intru() { Poste("66", Tenue::kInstant); }
  void Quit() { Poste("67", Tenue::kDerniere); }
  /// The companion reads until nothing waits any more.
  QList<QByteArray> ToutLit() {
    EXPECT_TRUE(AttendQue([this] { return !Emetteur.Attend(Poignee); }));
    return std::exchange(Recus, {});
  }
};

TEST_F(Attente, AReaderThatReadsGetsEveryCommandAtOnce) {
  for (int i = 0; i < 3; ++i) {
    Intru();
    EXPECT_EQ(Emetteur.EnAttente(Poignee), 0);
    ASSERT_EQ(ToutLit(), QList<QByteArray>{"66"});
  }
}

// Half a minute of a stopped companion during an alarm, with a save in between.
TEST_F(Attente, AfterALongStandstillItFindsTheSaveAndOneIntrusionOfNow) {
  Optio();  // taken by the kernel, not by the companion
  for (int image = 0; image < 900; ++image) {
    Intru();
    Maintenant += 33;
    if (image == 400) Optio();
  }
  EXPECT_LE(Emetteur.EnAttente(Poignee), 3);
  EXPECT_EQ(ToutLit(), QList<QByteArray>({"65", "65", "66"}));
}

TEST_F(Attente, AnIntrusionThatIsOverNeverArrives) {
  Optio();
  for (int image = 0; image < 30; ++image) Intru();
  EXPECT_EQ(Emetteur.EnAttente(Poignee), 1) << "equal neighbours are one";
  Maintenant += kDureeInstant + 1;
  EXPECT_EQ(ToutLit(), QList<QByteArray>{"65"});
}

TEST_F(Attente, AnIntrusionThatGoesOnCountsFromItsLastFrame) {
  Optio();
  Intru();
  Maintenant += kDureeInstant;
  Intru();
  Maintenant += kDureeInstant;
  EXPECT_EQ(ToutLit(), QList<QByteArray>({"65", "66"}));
}

// A clock that fails stands for the memory that the place in the row would have needed.
TEST_F(Attente, ACommandThatFindsNoMemoryIsLostAloneAndTheProgramGoesOn) {
  bool plein = false;
  EmetteurLocal emetteur(Dossier, [&plein]() -> qint64 {
    if (plein) throw std::bad_alloc();
    return 0;
  });
  const auto poste = [&](const char* code) { emetteur.PosteCommande(Poignee, code, Tenue::kGardee); };
  poste("65");  // taken by the kernel, not by the companion
  poste("69");
  plein = true;
  poste("71");
  plein = false;
  poste("66");
  EXPECT_TRUE(AttendQue([&] { return !emetteur.Attend(Poignee); }));
  EXPECT_EQ(Recus, QList<QByteArray>({"65", "69", "66"}));
}

TEST_F(Attente, TheKernelKeepsNoMoreThanOneCommandForAReaderThatStandsStill) {
  for (const char* code : {"65", "69", "71", "65"}) Poste(code, Tenue::kGardee);
  EXPECT_EQ(Emetteur.EnAttente(Poignee), 3) << "what it has cannot be taken back";
  EXPECT_EQ(ToutLit(), QList<QByteArray>({"65", "69", "71", "65"}));
}

TEST_F(Attente, EqualNeighboursAreOneAndOthersKeepTheirOrder) {
  Poste("67", Tenue::kGardee);
  for (const char* code : {"65", "65", "66", "66", "65"}) Poste(code, Tenue::kOrdinaire);
  EXPECT_EQ(ToutLit(), QList<QByteArray>({"67", "65", "66", "65"}));
}

TEST_F(Attente, TheLastWordGoesOutAtOnceWithTheSaveBeforeIt) {
  Intru();
  for (int i = 0; i < 200; ++i) {
    Optio();
    Intru();
  }
  Quit();
  EXPECT_EQ(Emetteur.EnAttente(Poignee), 0) << "nobody offers it again once the program has ended";
  EXPECT_EQ(ToutLit(), QList<QByteArray>({"66", "65", "67"}));
}

TEST_F(Attente, WhatIsKeptIsKeptWhateverElseWaits) {
  Poste("65", Tenue::kOrdinaire);
  Optio();
  for (int i = 0; i < 500; ++i) {
    Poste("68", Tenue::kOrdinaire);
    Poste("69", Tenue::kOrdinaire);
  }
  EXPECT_LE(Emetteur.EnAttente(Poignee), EmetteurLocal::kCommandesMax);
  const QList<QByteArray> lus = ToutLit();
  EXPECT_EQ(lus.value(1), "65");
  EXPECT_EQ(lus.last(), "69") << "and the newest of the others";
}

TEST_F(Attente, EvenWhatIsKeptIsBounded) {
  for (int i = 0; i < 500; ++i) Poste(i % 2 == 0 ? "65" : "68", Tenue::kGardee);
  EXPECT_LE(Emetteur.EnAttente(Poignee), EmetteurLocal::kCommandesMax);
  const QList<QByteArray> lus = ToutLit();
  EXPECT_TRUE(lus.contains("65") && lus.contains("68"));
}

// A companion that is only busy is told from one that takes nothing.
TEST_F(Attente, WhoeverTakesSomethingIsNotMute) {
  CanalLocal canal(Dossier);
  EXPECT_EQ(canal.DonnePrise(Poignee), Prise::kRien);
  canal.PosteTouche(Poignee, 65, Tenue::kGardee);
  canal.PosteTouche(Poignee, 66, Tenue::kGardee);
  EXPECT_EQ(canal.DonnePrise(Poignee), Prise::kMuette);
  EXPECT_EQ(canal.DonnePrise(Poignee), Prise::kMuette);
  ASSERT_TRUE(AttendQue([this] { return Recus.size() == 1; }));
  canal.PosteTouche(Poignee, 67, Tenue::kGardee);
  EXPECT_EQ(canal.DonnePrise(Poignee), Prise::kPrend);
  EXPECT_EQ(canal.DonnePrise(Poignee), Prise::kMuette);
  ASSERT_TRUE(AttendQue([&] { return canal.DonnePrise(Poignee) == Prise::kRien; }));
  EXPECT_EQ(Recus.size(), 3);
}

TEST_F(Attente, OfAWindowThatHasGoneNothingIsLeft) {
  CanalLocal canal(Dossier);
  const auto adresse = FormeAdresse(Dossier.DonneAdresse(777777));
  const int morte = ::socket(AF_UNIX, SOCK_DGRAM, 0);
  ASSERT_EQ(LieSocket(morte, *adresse), 0);
  canal.PosteTouche(777777, 65, Tenue::kGardee);
  canal.PosteTouche(777777, 66, Tenue::kGardee);
  EXPECT_EQ(canal.Repond(777777), true);
  ::close(morte);  // without removing its name, as a process that is killed
  canal.OublieFenetre(777777);
  EXPECT_EQ(canal.DonnePrise(777777), Prise::kRien);
  EXPECT_FALSE(QDir(Dossier.Chemin()).entryList(QDir::System).contains("777777"));
  canal.OublieFenetre(Poignee);
  EXPECT_EQ(canal.Repond(Poignee), true) << "one that is there keeps its name";
}

}  // namespace
}  // namespace vaktor::essai
