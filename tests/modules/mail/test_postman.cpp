// SPDX-License-Identifier: GPL-3.0-or-later
// The postman in virtual time: which mail goes when, what a refusal or an outage holds up, and the caps.
#include <cerrno>
#include <new>

#include "modules/mail/postman_bench.h"

namespace vaktor::essai {
namespace {

// What happens now matters more than what waited; mails of the watch tell a story, which begins at its beginning.
TEST_F(Poste, SendsTheNewestFirstAndEachOnce) {
  Depose("b");
  Depose("a");
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "b|a");
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Poste, AMailOfTheWatchGoesBeforeAllOthersThatWait) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  Depose("a");
  Depose("b");
  Travaille(kMinute);
  Depose("y", "message", true);
  Depose("z", "message", true);
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(5 * kMinute);
  EXPECT_EQ(Recus.join(u'|'), "y|z|b|a");
}

// By a clock that jumps forward, or in a machine that was off for a month, everything is old.
TEST_F(Poste, AMailIsNotGivenUpBeforeItWasTried) {
  Depose("a");
  Depose("b");
  Depose("c");
  Maintenant += qint64{30} * 24 * kHeure;
  Serveur = [](const QString& nom) {
    return nom == "a" ? ResultatEnvoi{.Cause = CauseEchec::kDestinataireRefuse} : ResultatEnvoi{.Accepte = true};
  };
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "c|b");
  EXPECT_TRUE(Rapports.join(u'|').startsWith("c ok|b ok|a plus tard|"));
  Travaille(2 * Facteur::kSursis);
  EXPECT_EQ(Rapports.last(), "a non");
  Depose("a");
  Maintenant += qint64{30} * 24 * kHeure;
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "c|b|a") << "another mail of that name, which was never tried";
}

TEST_F(Poste, EachMailIsTriedForAnHourThoughItIsOldAndTheServerIsAway) {
  Depose("a");
  Depose("b");
  Maintenant += qint64{30} * 24 * kHeure;
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  Travaille(Facteur::kSursis - kMinute);
  EXPECT_EQ(Noms(), "a|b");
  EXPECT_GT(Rapports.count("b plus tard"), 3);
  Travaille(5 * kHeure);
  EXPECT_EQ(Noms(), "");
  EXPECT_TRUE(Rapports.contains("a plus tard") && Rapports.contains("a non") && Rapports.contains("b non"));
}

// As at a start behind a power cut: the clock woke in another year, the network was not up, and with it comes the time.
TEST_F(Poste, AMailThatWasTriedBeforeTheClockWasPutRightGoes) {
  Depose("a");
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  Travaille(10 * kMinute);
  Maintenant += qint64{3650} * 24 * kHeure;
  Travaille(10 * kMinute);
  EXPECT_EQ(Noms(), "a") << "the network may be back a little later";
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(10 * kMinute);
  EXPECT_EQ(Recus.join(u'|'), "a");
}

TEST_F(Poste, OfTooManyTheOldestIsGivenUpAndNotTheOneThatGoesFirst) {
  Depose("a");
  Maintenant += SacPostal::kAgeMaxMs - kHeure;
  Depose("z", "message", true);
  Maintenant += 2 * kHeure;
  EXPECT_EQ(B.Elague(Maintenant, {"a", "z"}).join(u'|'), "a");
  EXPECT_EQ(Noms(), "z");
}

TEST_F(Poste, AFullHourOfAlarmMailsDoesNotHoldUpTheWatch) {
  for (int i = 0; i < PlafondHoraire::kCourrielsParHeure + 5; ++i)
    Depose(QStringLiteral("a%1").arg(i, 3, 10, QChar('0')));
  Travaille(5 * kMinute);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure);
  for (int i = 0; i < PlafondHoraire::kReserveVeille + 5; ++i) Depose(QStringLiteral("v%1").arg(i), "message", true);
  Travaille(5 * kMinute);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure + PlafondHoraire::kReserveVeille) << "but not without end";
  EXPECT_TRUE(Recus.last().startsWith('v'));
  Travaille(3 * kHeure);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure + PlafondHoraire::kReserveVeille + 10);
}

TEST_F(Poste, ADayWithoutAServerLosesNothingAndSendsNothingTwice) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  for (int i = 0; i < 24 * 4; ++i) {
    Depose(QStringLiteral("%1").arg(i, 4, 10, QChar('0')));
    Travaille(15 * kMinute);
  }
  EXPECT_TRUE(Recus.isEmpty());
  EXPECT_LT(Tentatives, 740 + 24 * 4) << "about every two minutes, whatever waits, and each new one once";
  EXPECT_GT(Tentatives, 700 + 24 * 4);
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(30 * kMinute);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure - PlafondHoraire::kReserveFrais)
      << "the cap holds for what has waited as well, and leaves room for what comes";
  Travaille(3 * kHeure);
  EXPECT_EQ(Recus.size(), 96);
  EXPECT_EQ(QSet<QString>(Recus.begin(), Recus.end()).size(), 96);
  EXPECT_TRUE(std::is_sorted(Recus.rbegin(), Recus.rend())) << "the newest first";
}

TEST_F(Poste, AMailThatFindsNoMemoryIsPutOffAndTheOthersPass) {
  Serveur = [](const QString& nom) -> ResultatEnvoi {
    if (nom == "a") throw std::bad_alloc();
    return {.Accepte = true};
  };
  Depose("a");
  Depose("b");
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "b");
  EXPECT_EQ(Noms(), "a");
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(2 * kMinute);
  EXPECT_EQ(Recus.join(u'|'), "b|a");
}

TEST_F(Poste, RetriesBackOff) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kDelai}; };
  Depose("a");
  QList<qint64> attentes;
  for (int i = 0; i < 10; ++i) {
    const qint64 attente = F->Tour();
    attentes << attente / 1000;
    Maintenant += attente;
  }
  EXPECT_EQ(attentes, QList<qint64>({10, 30, 60, 120, 300, 600, 900, 1800, 1800, 1800}));
}

TEST_F(Poste, AServerThatNobodyFindsIsAskedEveryTwoMinutes) {
  for (const CauseEchec cause : {CauseEchec::kPasDeConnexion, CauseEchec::kServeurIntrouvable}) {
    F->Recommence();
    Serveur = [cause](const QString&) { return ResultatEnvoi{.Cause = cause}; };
    if (Noms().isEmpty()) Depose("a");
    QList<qint64> attentes;
    for (int i = 0; i < 7; ++i) {
      const qint64 attente = F->Tour();
      attentes << attente / 1000;
      Maintenant += attente;
    }
    EXPECT_EQ(attentes, QList<qint64>({10, 30, 60, 120, 120, 120, 120}));
  }
}

TEST_F(Poste, AfterASuccessTheWaitsBeginAnew) {
  ResultatEnvoi reponse{.Cause = CauseEchec::kDelai};
  Serveur = [&](const QString&) { return reponse; };
  Depose("a");
  Depose("b");
  for (const qint64 attente : {10, 30, 60}) {
    EXPECT_EQ(F->Tour(), attente * 1000);
    Maintenant += attente * 1000;
  }
  reponse = {.Accepte = true};
  EXPECT_EQ(F->Tour(), 0);
  reponse = {.Cause = CauseEchec::kDelai};
  EXPECT_EQ(F->Tour(), 10'000);
}

TEST_F(Poste, AMailThatIsPutOffWaitsAlsoWhereTheDiskTakesNoNoteOfIt) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kDestinataireRefuse, .Code = 450}; };
  Depose("a");
  ASSERT_TRUE(QDir().mkpath(Dossier + "/a.try.part/full"));
  Travaille(8000);
  EXPECT_EQ(Tentatives, 1);
  Travaille(3000);
  EXPECT_EQ(Tentatives, 2);
}

TEST_F(Poste, WhatIsSaidOfOneMailsSenderHoldsUpNoOther) {
  Serveur = [](const QString& nom) {
    return nom == "a" ? ResultatEnvoi{.Cause = CauseEchec::kExpediteurRefuse, .Code = 450}
                      : ResultatEnvoi{.Accepte = true};
  };
  Depose("a");
  Depose("0");
  Travaille(1000);
  EXPECT_EQ(Recus.join(u'|'), "0");
}

TEST_F(Poste, AMailThatIsPutOffLetsTheOthersPass) {
  Serveur = [](const QString& nom) {
    return nom == "a" ? ResultatEnvoi{.Cause = CauseEchec::kDestinataireRefuse, .Code = 450}
                      : ResultatEnvoi{.Accepte = true};
  };
  Depose("a");
  Depose("0");
  Travaille(1000);
  EXPECT_EQ(Rapports.join(u'|'), "a plus tard|0 ok");
  F = Ouvre();
  Travaille(8000);
  EXPECT_EQ(Tentatives, 2) << "the wait outlasts a restart";
  Travaille(2000);
  EXPECT_EQ(Tentatives, 3);
}

// Turns are for paths that cut mail upon mail; else what was tried before is no reason to stand back.
TEST_F(Poste, TheNewestGoesFirstAlsoWhenItWasTriedMoreOften) {
  Serveur = [&](const QString& nom) {
    return nom == "b" ? ResultatEnvoi{.Cause = CauseEchec::kDestinataireRefuse, .Code = 450}
                      : ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion};
  };
  Depose("a");
  Depose("b");
  Travaille(9000);
  EXPECT_EQ(Rapports.join(u'|'), "b plus tard|a plus tard");
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Maintenant += kMinute;
  Travaille(1000);
  EXPECT_EQ(Recus.join(u'|'), "b|a");
}

TEST_F(Poste, EachAttemptOfOneMailIsCountedAndLeavesNothingBehind) {
  ResultatEnvoi reponse{.Cause = CauseEchec::kDestinataireRefuse, .Code = 450};
  Serveur = [&](const QString&) { return reponse; };
  Depose("a");
  QList<qint64> essais;
  for (const qint64 debut = Maintenant; Maintenant - debut < 200'000; Maintenant += 1000) {
    const int avant = Tentatives;
    F->Tour();
    if (Tentatives > avant) essais << (Maintenant - debut) / 1000;
  }
  EXPECT_EQ(essais, QList<qint64>({0, 10, 40, 100})) << "10, 30, 60 seconds";
  F->Recommence();
  EXPECT_EQ(Fichiers(), "a.mail") << "other settings begin anew";
  F->Tour();
  EXPECT_EQ(Tentatives, essais.size() + 1) << "at once";
  Maintenant += 10'000;
  reponse = {.Accepte = true};
  F->Tour();
  EXPECT_EQ(Recus.join(u'|'), "a");
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Poste, ARefusalForGoodWaitsForOtherSettings) {
  ResultatEnvoi reponse{.Definitif = true, .Cause = CauseEchec::kDestinataireRefuse, .Code = 550};
  Serveur = [&](const QString&) { return reponse; };
  Depose("a");
  Travaille(6 * kHeure - kMinute);
  EXPECT_EQ(Rapports.join(u'|'), "a non");
  EXPECT_EQ(Fichiers(), "a.rcpt|a.refused");
  reponse = {.Accepte = true};
  F->Recommence();
  Travaille(1000);
  EXPECT_EQ(Recus.join(u'|'), "a");
}

TEST_F(Poste, OtherSettingsMakeAllDueAtOnce) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kConnexionRefusee, .Code = 535}; };
  Depose("a");
  Travaille(kHeure);
  const int avant = Tentatives;
  F->Recommence();
  F->Tour();
  EXPECT_EQ(Tentatives, avant + 1);
}

TEST_F(Poste, AClockThatIsSetBackHoldsUpNothingForLong) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kDelai}; };
  Depose("a");
  F->Tour();
  Maintenant -= 24 * kHeure;
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  F->Tour();
  EXPECT_EQ(Recus.join(u'|'), "a");
}

TEST_F(Poste, AnAcceptedMailNeverGoesAgainEvenIfTheDiskKeepsIt) {
  Depose("a");
  F->Tour();
  Depose("a");  // as if the rename had failed
  Travaille(kHeure);
  EXPECT_EQ(Recus.join(u'|'), "a");
}

TEST_F(Poste, OurOwnEndIsNoFailure) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kInterrompu}; };
  Depose("a");
  F->Tour();
  EXPECT_TRUE(Rapports.isEmpty());
  EXPECT_EQ(Fichiers(), "a.mail");
}

TEST(Cap, SoManyInAnHourAndOverARestart) {
  PlafondHoraire p(3);
  for (const qint64 t : {0, 10, 20}) {
    EXPECT_EQ(p.Attente(t), 0);
    p.Note(t);
  }
  PlafondHoraire relu(3);
  relu.Relit(p.Texte() + "bruit\n\xff\n");
  EXPECT_EQ(relu.Attente(30), PlafondHoraire::kHeureMs - 30);
  EXPECT_EQ(relu.Attente(PlafondHoraire::kHeureMs), 0);
  EXPECT_EQ(p.Attente(-1), 0) << "the clock was set back";
}

TEST(Cap, OfMoreThanItKeepsTheNewestCount) {
  PlafondHoraire p(3);
  for (int i = 0; i < 3 + PlafondHoraire::kReserveVeille; ++i) p.Note(0);
  for (int i = 0; i < 3; ++i) p.Note(1000);
  EXPECT_EQ(p.Attente(2000), PlafondHoraire::kHeureMs - 1000);
}

}  // namespace
}  // namespace vaktor::essai
