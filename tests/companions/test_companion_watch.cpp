// SPDX-License-Identifier: GPL-3.0-or-later
// Companions that end, hang, are missing or do not register: in virtual time, with processes that are a list.
#include "base/failure.h"
#include "companions/companion_watch_bench.h"

namespace vaktor::essai {
namespace {

TEST_F(Veille, ANormalStartReportsNothing) {
  Lance();
  EXPECT_EQ(Journal.join(u'|'), "lance " + kFtp + "|lance " + kMail + "|lance " + kSon);
  Secondes(9);
  for (const Compagnon compagnon : kCompagnons) Inscrit(compagnon);
  Secondes(3600);
  EXPECT_TRUE(Sante.Debuts.isEmpty());
  EXPECT_EQ(Journal.filter("relance").size(), 0);
  EXPECT_EQ(Journal.filter("retour").size(), 0) << "the one of the launch has nothing to be told";
}

TEST_F(Veille, OneThatEndsIsStartedAgainAndToldUntilItHasRegistered) {
  LanceEtInscrit();
  Processus.Finit(kMail);
  EXPECT_TRUE(Sante.Dure(Condition::kCompagnonMail));
  EXPECT_EQ(Sante.Details.value(Condition::kCompagnonMail), QString::fromUtf8("s'est arrêté"));
  EXPECT_EQ(Journal.join(u'|'), "oublie 22|perte MAIL");
  Temps.Avance(999);
  EXPECT_EQ(Relances(kMail), 0);
  Temps.Avance(1);
  EXPECT_EQ(Relances(kMail), 1);
  EXPECT_FALSE(Journal.contains("retour MAIL"));
  EXPECT_TRUE(Sante.Dure(Condition::kCompagnonMail)) << "it runs, and nobody knows whether it works";
  Inscrit(Compagnon::kMail);
  EXPECT_TRUE(Journal.contains("retour MAIL"));
  EXPECT_FALSE(Sante.Dure(Condition::kCompagnonMail));
  EXPECT_EQ(Sante.Debuts.value(Condition::kCompagnonMail), 1);
  EXPECT_EQ(Sante.Debuts.size(), 1) << "the two others have nothing";
}

TEST_F(Veille, EachCompanionHasItsOwnCondition) {
  LanceEtInscrit();
  Processus.Finit(kFtp);
  Processus.Finit(kSon);
  EXPECT_EQ(Sante.Details.keys(), QList<Condition>({Condition::kCompagnonFtp, Condition::kCompagnonSon}));
}

TEST_F(Veille, ItsDeathIsToldInTheUsersLanguage) {
  Reglages.LangueCourante = 1;
  LanceEtInscrit();
  Processus.Finit(kFtp);
  EXPECT_EQ(Sante.Details.value(Condition::kCompagnonFtp), "has ended");
}

TEST_F(Veille, OneThatKeepsEndingIsStartedAgainMoreAndMoreSeldom) {
  LanceEtInscrit();
  for (const qint64 attente : {1000, 5000, 30000, 300000, 300000}) {
    Processus.Finit(kSon);
    Journal.clear();
    Temps.Avance(attente - 1);
    EXPECT_EQ(Relances(kSon), 0) << attente;
    Temps.Avance(1);
    EXPECT_EQ(Relances(kSon), 1) << attente;
    Inscrit(Compagnon::kSon);
  }
}

TEST_F(Veille, TheRowBeginsAnewAfterFiveGoodMinutes) {
  LanceEtInscrit();
  for (int fois = 0; fois < 3; ++fois) {
    Processus.Finit(kSon);
    Secondes(30);
    Inscrit(Compagnon::kSon);
  }
  Secondes(VeilleCompagnons::kVieSaine);
  Processus.Finit(kSon);
  Journal.clear();
  Secondes(1);
  EXPECT_EQ(Relances(kSon), 1);
}

TEST_F(Veille, ALifeThatWasNotRegisteredIsNotAGoodOne) {
  LanceEtInscrit();
  Processus.Finit(kSon);
  Secondes(1);
  Secondes(50);  // it has not registered, and that is no life
  Processus.Finit(kSon);
  Journal.clear();
  Temps.Avance(4999);
  EXPECT_EQ(Relances(kSon), 0);
}

TEST_F(Veille, AMissingProgramIsAConditionAndIsTriedAgain) {
  LanceEtInscrit();
  Processus.Absents = {kFtp};
  Processus.Finit(kFtp);
  Secondes(1);
  EXPECT_EQ(Sante.Details.value(Condition::kCompagnonFtp), kFtp);
  Secondes(5);
  EXPECT_EQ(Relances(kFtp), 2);
  Processus.Absents.clear();
  Secondes(30);
  EXPECT_EQ(Relances(kFtp), 3);
  Inscrit(Compagnon::kFtp);
  EXPECT_FALSE(Sante.Dure(Condition::kCompagnonFtp));
}

TEST_F(Veille, OneThatFindsNoMemoryToBeStartedIsSweptAndTriedAgainLikeOneThatIsMissing) {
  LanceEtInscrit();
  Processus.Finit(kSon);
  Processus.SansMemoire = true;
  EXPECT_THROW(Secondes(1), std::bad_alloc);
  Processus.SansMemoire = false;
  Journal.clear();
  Temps.Avance(4999);
  EXPECT_EQ(Relances(kSon), 0);
  Temps.Avance(1);
  EXPECT_EQ(Journal, QStringList({"balaie SON", "relance " + kSon})) << "it may run, and nobody follows it";
}

TEST_F(Veille, OneWhoseSweepFindsNoMemoryIsSweptLater) {
  LanceEtUneAutreCopieFinitTout();
  Secondes(1);
  Canal.Presents.clear();
  SansMemoire = true;
  EXPECT_THROW(Secondes(5), std::bad_alloc);
  SansMemoire = false;
  Secondes(20);
  for (const char* qui : {"FTP", "MAIL", "SON"}) EXPECT_TRUE(Journal.contains(QLatin1String("balaie ") + qui)) << qui;
  for (const QString& chemin : {kFtp, kMail, kSon}) EXPECT_EQ(Relances(chemin), 1);
}

TEST_F(Veille, WhateverIsThrownWhenItsEndIsToldItIsStartedAgain) {
  LanceEtInscrit();
  SansMemoire = true;
  EXPECT_THROW(Processus.Finit(kSon), std::bad_alloc);
  SansMemoire = false;
  Secondes(1);
  EXPECT_EQ(Relances(kSon), 1);
}

TEST_F(Veille, AMissingProgramAtTheLaunchIsForTheLaunchToTell) {
  Processus.Absents = {kMail};
  EXPECT_TRUE(Regles.Lance(Compagnon::kFtp));
  EXPECT_FALSE(Regles.Lance(Compagnon::kMail));
  EXPECT_TRUE(Sante.Debuts.isEmpty());
}

TEST_F(Veille, OneThatEndsDuringTheLaunchIsStartedAgainOnceItIsOver) {
  Regles.Lance(Compagnon::kFtp);
  Processus.Finit(kFtp);
  EXPECT_TRUE(Sante.Dure(Condition::kCompagnonFtp));
  Secondes(10);
  EXPECT_EQ(Relances(kFtp), 0) << "a launch that fails starts nothing again";
  Regles.Commence();
  Secondes(1);
  EXPECT_EQ(Relances(kFtp), 1);
}

TEST_F(Veille, OneThatDoesNotRegisterIsToldAfterTenSecondsAndEndedAfterAMinute) {
  Lance();
  Inscrit(Compagnon::kFtp);
  Inscrit(Compagnon::kSon);
  Secondes(9);
  EXPECT_TRUE(Sante.Debuts.isEmpty());
  Secondes(1);
  EXPECT_EQ(Sante.Details.value(Condition::kCompagnonMail), QString::fromUtf8("ne s'est pas annoncé"));
  Journal.clear();
  Secondes(49);
  EXPECT_EQ(Journal.filter("demande fin").size(), 0);
  Secondes(1);
  EXPECT_EQ(Journal.filter("demande fin"), QStringList("demande fin " + kMail));
}

TEST_F(Veille, ALateRegistrationEndsTheCondition) {
  Lance();
  Secondes(30);
  EXPECT_EQ(Sante.Details.size(), 3);
  for (const Compagnon compagnon : kCompagnons) Inscrit(compagnon);
  EXPECT_TRUE(Sante.Details.isEmpty());
}

TEST_F(Veille, OneThatTakesNoMessageForThirtySecondsIsToldEndedAndStartedAgain) {
  LanceEtInscrit();
  Canal.Prises[23] = Prise::kMuette;
  Secondes(VeilleCompagnons::kMuetteMax);
  EXPECT_TRUE(Sante.Debuts.isEmpty());
  Secondes(1);
  EXPECT_EQ(Sante.Details.value(Condition::kCompagnonSon), QString::fromUtf8("ne répond plus"));
  EXPECT_EQ(Journal.filter("demande fin"), QStringList("demande fin " + kSon));
  EXPECT_EQ(Journal.count("perte SON"), 1);
  Processus.Finit(kSon);
  EXPECT_EQ(Journal.count("perte SON"), 1) << "told already";
  EXPECT_EQ(Relances(kSon), 0);
  Secondes(1);
  EXPECT_EQ(Relances(kSon), 1);
  EXPECT_EQ(Journal.filter("tue").size(), 0);
}

TEST_F(Veille, ASlowOneIsNotHung) {
  LanceEtInscrit();
  for (int fois = 0; fois < 20; ++fois) {
    Canal.Prises[23] = Prise::kMuette;
    Secondes(VeilleCompagnons::kMuetteMax - 1);
    Canal.Prises[23] = Prise::kPrend;
    Secondes(1);
  }
  EXPECT_TRUE(Sante.Debuts.isEmpty());
}

TEST_F(Veille, AHungOneThatIgnoresTheRequestIsKilled) {
  LanceEtInscrit();
  Canal.Prises[21] = Prise::kMuette;
  Secondes(VeilleCompagnons::kMuetteMax + 1);
  Secondes(VeilleCompagnons::kFinPolie);
  EXPECT_TRUE(Journal.contains("tue " + kFtp));
  Processus.Finit(kFtp);
  Secondes(1);
  EXPECT_EQ(Relances(kFtp), 1);
}

// A process in the hands of a dead disk ends when the disk does; that it was killed is enough.
TEST_F(Veille, OneThatTheSystemCannotTakeAwayDoesNotKeepItsPlace) {
  LanceEtInscrit();
  Canal.Prises[21] = Prise::kMuette;
  Secondes(VeilleCompagnons::kMuetteMax + 1 + VeilleCompagnons::kFinPolie + VeilleCompagnons::kFinForcee + 1);
  EXPECT_EQ(Journal.count("tue " + kFtp), 1);
  EXPECT_EQ(Relances(kFtp), 1);
  EXPECT_EQ(Journal.count("perte FTP"), 1);
}

TEST_F(Veille, EveryTenSecondsACodeThatMeansNothingShowsWhetherMessagesAreTaken) {
  LanceEtInscrit();
  Secondes(9);
  EXPECT_EQ(Journal.filter("poste").size(), 0);
  Secondes(1);
  EXPECT_EQ(Journal.filter("poste"), QStringList({"poste 21 0", "poste 22 0", "poste 23 0"}));
  EXPECT_EQ(Canal.DerniereTenue, Tenue::kInstant) << "of no use later";
  for (const Compagnon compagnon : kCompagnons) EXPECT_EQ(LitCodeTouche(compagnon, kCodeSonde), std::nullopt);
}

TEST_F(Veille, ACompanionIsCountedOnWhileItIsRegisteredAndTakesItsMessages) {
  Lance();
  EXPECT_FALSE(Regles.Prend(Compagnon::kFtp));
  Inscrit(Compagnon::kFtp);
  EXPECT_TRUE(Regles.Prend(Compagnon::kFtp));
  Canal.Prises[21] = Prise::kMuette;
  Secondes(VeilleCompagnons::kHesite - 1);
  EXPECT_TRUE(Regles.Prend(Compagnon::kFtp)) << "it may only be busy";
  Secondes(1);
  EXPECT_FALSE(Regles.Prend(Compagnon::kFtp));
  Canal.Prises[21] = Prise::kRien;
  Secondes(1);
  EXPECT_TRUE(Regles.Prend(Compagnon::kFtp));
  Processus.Finit(kFtp);
  EXPECT_FALSE(Regles.Prend(Compagnon::kFtp));
}

TEST_F(Veille, OnlyOneThatWasStartedAgainIsKnownAsSuch) {
  LanceEtInscrit();
  EXPECT_FALSE(Regles.EstRelance(Compagnon::kFtp));
  Processus.Finit(kFtp);
  Secondes(1);
  EXPECT_TRUE(Regles.EstRelance(Compagnon::kFtp));
  EXPECT_FALSE(Regles.EstRelance(Compagnon::kMail));
}

TEST_F(Veille, AWordOfTheDeadIsNoRegistration) {
  LanceEtInscrit();
  Processus.Finit(kMail);
  Inscrit(Compagnon::kMail);
  EXPECT_TRUE(Sante.Dure(Condition::kCompagnonMail));
  EXPECT_FALSE(Journal.contains("retour MAIL"));
}

// A green lamp for a companion that is dead: what it had said waits in the inbox behind the news of its end.
TEST_F(Veille, WhatComesIsOfTheDeadUntilAnotherHasGivenItsHandle) {
  EXPECT_TRUE(Regles.EstInscrit(Compagnon::kFtp)) << "before anything is looked after";
  Lance();
  EXPECT_TRUE(Regles.EstInscrit(Compagnon::kFtp));
  Inscrit(Compagnon::kFtp);
  EXPECT_TRUE(Regles.EstInscrit(Compagnon::kFtp));
  Processus.Finit(kFtp);
  EXPECT_FALSE(Regles.EstInscrit(Compagnon::kFtp));
  Secondes(1);
  EXPECT_FALSE(Regles.EstInscrit(Compagnon::kFtp)) << "started, and not yet there";
  Inscrit(Compagnon::kFtp);
  EXPECT_TRUE(Regles.EstInscrit(Compagnon::kFtp));
  Canal.Prises[21] = Prise::kMuette;
  Secondes(VeilleCompagnons::kMuetteMax + 1);
  EXPECT_FALSE(Regles.EstInscrit(Compagnon::kFtp)) << "hung, and being ended";
}

TEST_F(Veille, OneThatSomebodyElseHasStartedIsHeardWhileOursIsAway) {
  LanceEtInscrit();
  Processus.Finit(kFtp);
  Etat.HandleFTP = 4711;
  Regles.Inscrit(Compagnon::kFtp);
  EXPECT_TRUE(Regles.EstInscrit(Compagnon::kFtp));
}

// A disk that is silent holds each of them inside the system, where no signal reaches it.
TEST_F(Veille, ThoseThatCannotBeKilledDoNotGather) {
  LanceEtInscrit();
  const auto pend = [this] {
    Canal.Prises[23] = Prise::kMuette;
    Secondes(VeilleCompagnons::kMuetteMax + VeilleCompagnons::kFinPolie + VeilleCompagnons::kFinForcee + 2);
    Canal.Prises.remove(23);
  };
  constexpr int kMax = VeilleCompagnons::kRestesMax;
  for (int reste = 1; reste < kMax; ++reste) {
    pend();
    for (int i = 0; i < 300 && Relances(kSon) < reste; ++i) Secondes(1);
    ASSERT_EQ(Relances(kSon), reste) << "its place is free";
    Inscrit(Compagnon::kSon);
  }
  pend();
  Secondes(3600);
  EXPECT_EQ(Relances(kSon), kMax - 1);
  EXPECT_EQ(Sante.Details.value(Condition::kCompagnonSon), QString::fromUtf8("le système n'arrive pas à l'arrêter"));
  Processus.FinitAncien(kSon);  // the disk answers
  EXPECT_EQ(Journal.filter("perte SON").size(), kMax) << "it was told long ago";
  for (int i = 0; i < 300 && Relances(kSon) < kMax; ++i) Secondes(1);
  EXPECT_EQ(Relances(kSon), kMax);
  Inscrit(Compagnon::kSon);
  Processus.FinitAncien(kSon);
  EXPECT_FALSE(Sante.Dure(Condition::kCompagnonSon)) << "the end of an old one is not that of the new one";
}

TEST_F(Veille, TheEndOfTheProgramIsNoDeath) {
  LanceEtInscrit();
  Regles.Arrete();
  for (const QString& chemin : {kFtp, kMail, kSon}) Processus.Finit(chemin);
  Secondes(3600);
  EXPECT_TRUE(Sante.Debuts.isEmpty());
  EXPECT_TRUE(Journal.isEmpty()) << Journal.join(u'|').toStdString();
}

TEST_F(Veille, TheEndOfTheProgramStopsWhatWasToBeStartedAgain) {
  LanceEtInscrit();
  Processus.Finit(kSon);
  Regles.Arrete();
  Secondes(3600);
  EXPECT_EQ(Relances(kSon), 0);
}

TEST_F(Veille, AtTheEndThoseThatCannotHearTheWordAreAskedInAnotherWay) {
  LanceEtInscrit();
  Processus.Finit(kMail);
  Secondes(1);  // started again, and not registered yet
  Canal.Prises[23] = Prise::kMuette;
  Secondes(VeilleCompagnons::kMuetteMax + 1);  // the sound companion is being ended
  Journal.clear();
  Regles.Arrete();
  EXPECT_EQ(Journal, QStringList({"demande fin " + kMail, "tue " + kSon}));
}

}  // namespace
}  // namespace vaktor::essai
