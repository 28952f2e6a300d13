// SPDX-License-Identifier: GPL-3.0-or-later
// Companions that end, hang, are missing or do not register: in virtual time, with processes that are a list.
#include <gtest/gtest.h>

#include <new>

#include "base/failure.h"
#include "companions/companion_fakes.h"
#include "fakes/fake_health_report.h"

namespace vaktor::essai {
namespace {

const QString kFtp = QStringLiteral("/opt/vaktor/VAKTORftp");
const QString kMail = QStringLiteral("/opt/vaktor/VAKTORmail");
const QString kSon = QStringLiteral("/opt/vaktor/VAKTORsound");

struct Veille : testing::Test {
  QStringList Journal;
  ProcessusFaux Processus{Journal};
  CanalFaux Canal{Journal};
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::SanteFausse Sante;
  EtatLiaison Etat;
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/home/u/vaktor")};
  Parametres Reglages;
  LecteurCasiersFaux Lecteur;
  GardeCasiers Casiers{PortsGarde{Lecteur, Canal, Sante,
                                  [] {
                                    return PoigneesPubliees{1001, 1002, 1003};
                                  },
                                  [this] { Journal << QStringLiteral("republie"); }}};
  VeilleCompagnons Regles{
      PortsVeille{Processus, Canal, Etat, Temps, Sante, Dossiers, Reglages, Casiers,
                  [this](Compagnon c) {
                    if (SansMemoire) throw std::bad_alloc();
                    Journal << QStringLiteral("perte ") + DonneIdentite(c).Section;
                  },
                  [this](Compagnon c) { Journal << QStringLiteral("retour ") + DonneIdentite(c).Section; },
                  [this](Compagnon c, std::function<void()> fini) {
                    if (SansMemoire) throw std::bad_alloc();
                    Journal << QStringLiteral("balaie ") + DonneIdentite(c).Section;
                    Balais.append(std::move(fini));
                    if (!BalaiMuet) Balais.takeLast()();
                  }}};
  QList<std::function<void()>> Balais;
  bool BalaiMuet = false;    ///< the sweep takes long
  bool SansMemoire = false;  ///< for what is called back

  void Lance() {
    for (const Compagnon compagnon : kCompagnons) EXPECT_TRUE(Regles.Lance(compagnon));
    Regles.Commence();
  }
  /// The companion gives its handle: 21, 22 or 23.
  void Inscrit(Compagnon compagnon) {
    qint32* const poignees[] = {&Etat.HandleFTP, &Etat.HandleMail, &Etat.HandleSon};
    *poignees[static_cast<int>(compagnon)] = 21 + static_cast<int>(compagnon);
    Regles.Inscrit(compagnon);
  }
  void LanceEtInscrit() {
    Lance();
    for (const Compagnon compagnon : kCompagnons) Inscrit(compagnon);
    Journal.clear();
  }
  /// Another copy of the program comes up and ends the companions of this one.
  void LanceEtUneAutreCopieFinitTout() {
    LanceEtInscrit();
    Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
    Canal.Presents = {5001, 5002, 5003};
    for (const QString& chemin : {kFtp, kMail, kSon}) Processus.Finit(chemin);
  }
  int Relances(const QString& chemin) const {
    return static_cast<int>(Journal.count(QStringLiteral("relance ") + chemin));
  }
  void Secondes(int secondes) { Temps.Avance(secondes * 1000LL); }
};

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
