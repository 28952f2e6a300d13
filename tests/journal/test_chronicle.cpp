// SPDX-License-Identifier: GPL-3.0-or-later
// What journal and photos tell together, in good order and in none.
#include <gtest/gtest.h>

#include "health/conditions.h"
#include "journal/chronicle.h"

namespace vaktor {
namespace {

const QString kDossier = QStringLiteral("/p");

QDateTime Le(int jour, int heure, int minute = 0, int seconde = 0) {
  return QDateTime(QDate(2026, 11, jour), QTime(heure, minute, seconde));
}

QString Nom(int jour, const QTime& heure, int numero) {
  return QStringLiteral("2026-11-%1  %2 Photo %3.jpg")
      .arg(jour, 2, 10, QLatin1Char('0'))
      .arg(heure.toString(QStringLiteral("hh-mm-ss")))
      .arg(numero, 5, 10, QLatin1Char('0'));
}

class Chronicle : public testing::Test {
 protected:
  EntreeJournal& Ajoute(Fait quoi, const QDateTime& quand, const char* course = "r1") {
    EntreeJournal entree;
    entree.Quoi = quoi;
    entree.Quand = quand;
    entree.Course = QString::fromLatin1(course);
    entree.DepuisDepart = Le(20, 0).msecsTo(quand);
    Sources.Journal.Entrees.append(entree);
    return Sources.Journal.Entrees.last();
  }
  /// An intrusion of photos one a second, whose end is written ten seconds later.
  void Intrusion(const QDateTime& debut, int premier, int photos, const char* course = "r1", int jourNom = 0) {
    const int jour = jourNom == 0 ? debut.date().day() : jourNom;
    EntreeJournal& fin = Ajoute(Fait::kFinIntrusion, debut.addSecs(photos - 1 + 10), course);
    fin.Depuis = debut;
    fin.DureeMs = qint64{1000} * (photos - 1);
    fin.Images = fin.Photos = photos;
    fin.Points = 400;
    fin.Cadre = QRect(1, 2, 3, 4);
    fin.Dossier = kDossier;
    for (int i = 0; i < photos; ++i) {
      const QString nom = Nom(jour, debut.addSecs(i).time(), premier + i);
      if (i == 0) fin.Premiere = nom;
      if (i == photos / 3) fin.Meilleure = nom;
      fin.Derniere = nom;
      fin.Cadres.append({premier + i, QRect(i, i, 5, 5)});
      Sources.Noms[kDossier].append(nom);
    }
  }
  Chronique Compose() { return ComposeChronique(Sources); }

  SourcesChronique Sources;
};

TEST_F(Chronicle, AnIntrusionHasItsPhotosItsBestAndItsBoxes) {
  Ajoute(Fait::kArmee, Le(21, 23));
  Intrusion(Le(22, 3, 12, 5), 10, 9);
  Ajoute(Fait::kDesarmee, Le(22, 7));
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 1);
  const IntrusionVue& vue = c.Intrusions[0];
  EXPECT_EQ(vue.Debut, Le(22, 3, 12, 5));
  EXPECT_EQ(vue.DureeMs, 8000);
  EXPECT_EQ(vue.Points, 400);
  EXPECT_EQ(vue.Photos.size(), 9);
  EXPECT_EQ(vue.Photos, Sources.Noms[kDossier]);
  EXPECT_EQ(vue.Parlante, Nom(22, QTime(3, 12, 8), 13));
  EXPECT_EQ(vue.Cadre, QRect(1, 2, 3, 4));
  EXPECT_EQ(CadreDe(vue, vue.Photos[2]), QRect(2, 2, 5, 5));
  EXPECT_EQ(CadreDe(vue, QStringLiteral("x.jpg")), QRect());
  ASSERT_EQ(c.Armees.size(), 1);
  EXPECT_EQ(c.Armees[0].De, Le(21, 23));
  EXPECT_EQ(c.Armees[0].A, Le(22, 7));
  EXPECT_FALSE(c.Armees[0].EnCours);
}

TEST_F(Chronicle, AfterMidnightTheNamesHaveTheDayOfTheStart) {
  Intrusion(Le(22, 23, 59, 57), 10, 6, "r1", 21);
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 1);
  EXPECT_EQ(c.Intrusions[0].Photos.size(), 6);
  EXPECT_EQ(c.Intrusions[0].Debut, Le(22, 23, 59, 57));
}

TEST_F(Chronicle, TwoRunsOfOneDayWhoseNumbersAreTheSameKeepTheirPhotosApart) {
  Intrusion(Le(22, 3), 1, 5);
  Intrusion(Le(22, 9), 1, 7, "r2");
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 2);
  EXPECT_EQ(c.Intrusions[0].Photos.size(), 5);
  EXPECT_EQ(c.Intrusions[1].Photos.size(), 7);
}

TEST_F(Chronicle, PhotosThatVanishedAreMissingAndTheCardIsThere) {
  Intrusion(Le(22, 3), 1, 5);
  Sources.Noms[kDossier].removeAt(1);  // the best one
  Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 1);
  EXPECT_EQ(c.Intrusions[0].Photos.size(), 4);
  EXPECT_EQ(c.Intrusions[0].Ecrites, 5);
  EXPECT_EQ(c.Intrusions[0].Parlante, Nom(22, QTime(3, 0, 3), 4));
  EXPECT_EQ(c.Intrusions[0].Cadre, QRect(3, 3, 5, 5)) << "the box of that photo and not of the one that went";
  Sources.Noms.clear();
  c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 1);
  EXPECT_TRUE(c.Intrusions[0].Photos.isEmpty());
  EXPECT_TRUE(c.Intrusions[0].Parlante.isEmpty());
}

TEST_F(Chronicle, AKillInTheMiddleLeavesTheBeginningAndThePhotosThatFollow) {
  Ajoute(Fait::kArmee, Le(22, 2));
  EntreeJournal& debut = Ajoute(Fait::kDebutIntrusion, Le(22, 3, 0, 1));
  debut.Depuis = Le(22, 3);
  debut.Dossier = kDossier;
  debut.Premiere = Nom(22, QTime(3, 0, 0), 7);
  for (int i = 0; i < 4; ++i) Sources.Noms[kDossier].append(Nom(22, QTime(3, 0, i), 7 + i));
  Sources.Noms[kDossier].append(Nom(22, QTime(5, 0, 0), 12));  // of another movement
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 2);
  EXPECT_EQ(c.Intrusions[0].Photos.size(), 4);
  EXPECT_EQ(c.Intrusions[0].DureeMs, 3000);
  EXPECT_FALSE(c.Intrusions[0].EnCours);
  EXPECT_EQ(c.Intrusions[1].Debut, Le(22, 5));
  ASSERT_EQ(c.Armees.size(), 1) << "armed to the last line that the run wrote";
  EXPECT_EQ(c.Armees[0].A, Le(22, 3, 0, 1));
}

TEST_F(Chronicle, WhatThisRunHasNotEndedGoesOnUntilNow) {
  Ajoute(Fait::kArmee, Le(22, 2));
  EntreeJournal& perdue = Ajoute(Fait::kDebutCondition, Le(22, 3));
  perdue.Mot = QStringLiteral("signal-lost");
  perdue.Depuis = Le(22, 2, 59, 50);
  perdue.Detail = QStringLiteral("/dev/video0");
  Sources.Course = QStringLiteral("r1");
  Sources.Maintenant = Le(22, 4);
  Chronique c = Compose();
  ASSERT_EQ(c.Armees.size(), 1);
  EXPECT_TRUE(c.Armees[0].EnCours);
  EXPECT_EQ(c.Armees[0].A, Le(22, 4));
  ASSERT_EQ(c.Conditions.size(), 1);
  EXPECT_EQ(c.Conditions[0].Quoi, Condition::kSignalPerdu);
  EXPECT_EQ(c.Conditions[0].De, Le(22, 2, 59, 50));
  EXPECT_EQ(c.Conditions[0].A, Le(22, 4));
  EXPECT_TRUE(c.Conditions[0].EnCours);
  EXPECT_EQ(c.Conditions[0].Detail, QStringLiteral("/dev/video0"));
  EXPECT_EQ(c.DureeVeille(Le(22, 0), Le(23, 0)), 3590 * 1000) << "armed, but blind since ten seconds before three";
  Sources.Course = QStringLiteral("r2");
  c = Compose();
  EXPECT_FALSE(c.Armees[0].EnCours);
  EXPECT_EQ(c.Armees[0].A, Le(22, 3));
}

TEST_F(Chronicle, TwoProgramsInOneFileAreNotMixed) {
  Ajoute(Fait::kArmee, Le(22, 2), "r1");
  Ajoute(Fait::kArmee, Le(22, 3), "r2");
  Ajoute(Fait::kDesarmee, Le(22, 4), "r1");
  Ajoute(Fait::kDesarmee, Le(22, 6), "r2");
  const Chronique c = Compose();
  ASSERT_EQ(c.Armees.size(), 2);
  EXPECT_EQ(c.Armees[0].A, Le(22, 4));
  EXPECT_EQ(c.Armees[1].A, Le(22, 6));
  EXPECT_EQ(c.DureeVeille(Le(22, 0), Le(23, 0)), 4 * 3'600'000) << "an hour of both is one hour";
  EXPECT_EQ(c.DureeVeille(Le(22, 3), Le(22, 5)), 2 * 3'600'000);
  EXPECT_EQ(c.DureeVeille(Le(21, 0), Le(22, 0)), 0);
}

TEST_F(Chronicle, WhatBlindsIsNoWatchAndIsCountedOnce) {
  Ajoute(Fait::kArmee, Le(22, 2));
  const auto entre = [this](const char* mot, int de, int a) {
    Ajoute(Fait::kDebutCondition, Le(22, 3, de)).Mot = QLatin1String(mot);
    Ajoute(Fait::kFinCondition, Le(22, 3, a)).Mot = QLatin1String(mot);
  };
  const auto veille = [this] {
    Chronique c = Compose();
    return c.DureeVeille(Le(22, 2), Le(22, 5)) / 60'000;
  };
  Ajoute(Fait::kDebutCondition, Le(22, 3)).Mot = MotCondition(Condition::kCourrielsEnAttente);
  Ajoute(Fait::kFinCondition, Le(22, 4)).Mot = MotCondition(Condition::kCourrielsEnAttente);
  Ajoute(Fait::kDesarmee, Le(22, 5));
  EXPECT_EQ(veille(), 180) << "who sees without a mail still sees";
  for (const Condition quoi : {Condition::kSignalPerdu, Condition::kDetectionArretee, Condition::kInterruption,
                               Condition::kImageFigee, Condition::kCameraAttendue}) {
    const JournalLu avant = Sources.Journal;
    const QByteArray mot = MotCondition(quoi).toLatin1();
    entre(mot.constData(), 10, 20);
    EXPECT_EQ(veille(), 170) << mot.constData();
    Sources.Journal = avant;
  }
  entre("signal-lost", 10, 20);
  entre(MotCondition(Condition::kDetectionArretee).toLatin1().constData(), 15, 30);
  EXPECT_EQ(veille(), 160);
}

TEST_F(Chronicle, ABandInsideAnotherOneTakesNothingFromIt) {
  Ajoute(Fait::kArmee, Le(22, 2), "r1");
  Ajoute(Fait::kArmee, Le(22, 3), "r2");
  Ajoute(Fait::kDesarmee, Le(22, 4), "r2");
  Ajoute(Fait::kDesarmee, Le(22, 6), "r1");
  EXPECT_EQ(Compose().DureeVeille(Le(22, 0), Le(23, 0)), 4 * 3'600'000);
}

TEST_F(Chronicle, WhatIsToldTwiceBeganWithTheFirstAndEndsOnce) {
  Ajoute(Fait::kArmee, Le(22, 2));
  Ajoute(Fait::kArmee, Le(22, 3));
  Ajoute(Fait::kDebutCondition, Le(22, 3)).Mot = QStringLiteral("signal-lost");
  Ajoute(Fait::kDebutCondition, Le(22, 4)).Mot = QStringLiteral("signal-lost");
  Ajoute(Fait::kFinCondition, Le(22, 5)).Mot = QStringLiteral("signal-lost");
  Ajoute(Fait::kDesarmee, Le(22, 6));
  const Chronique c = Compose();
  ASSERT_EQ(c.Armees.size(), 1);
  EXPECT_EQ(c.Armees[0].De, Le(22, 2));
  ASSERT_EQ(c.Conditions.size(), 1) << "and nothing of it goes on";
  EXPECT_EQ(c.Conditions[0].De, Le(22, 3));
  EXPECT_EQ(c.Conditions[0].A, Le(22, 5));
}

TEST_F(Chronicle, AnIntrusionThatHasEndedIsOneAndABeginningWithoutAnEndIsOneToo) {
  EntreeJournal& premiere = Ajoute(Fait::kDebutIntrusion, Le(22, 2));
  premiere.Depuis = Le(22, 2);
  Ajoute(Fait::kDebutIntrusion, Le(22, 3)).Depuis = Le(22, 3);
  Intrusion(Le(22, 3), 1, 5);
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 2);
  EXPECT_EQ(c.Intrusions[0].Debut, Le(22, 2)) << "its end was never written";
  EXPECT_EQ(c.Intrusions[1].Photos.size(), 5);
}

TEST_F(Chronicle, IntrusionsStandInTheOrderOfTime) {
  Intrusion(Le(22, 9), 50, 3, "r2");
  Intrusion(Le(22, 3), 1, 3, "r1");
  const Chronique c = Compose();
  EXPECT_EQ(c.Intrusions[0].Debut, Le(22, 3));
  EXPECT_EQ(c.Intrusions[1].Debut, Le(22, 9));
}

TEST_F(Chronicle, TwoIntrusionsDoNotShareAPhotoAndNoMoreThanEightFoldersAreLookedInto) {
  Intrusion(Le(22, 3), 1, 5);
  EntreeJournal deuxieme = Sources.Journal.Entrees.last();
  deuxieme.Course = QStringLiteral("r2");
  Sources.Journal.Entrees.append(deuxieme);  // of a copy of the journal's file
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 2);
  EXPECT_EQ(c.Intrusions[0].Photos.size() + c.Intrusions[1].Photos.size(), 5);
  for (int i = 0; i < 20; ++i) {
    deuxieme.Dossier = QStringLiteral("/%1").arg(i);
    Sources.Journal.Entrees.append(deuxieme);
  }
  EXPECT_EQ(DossiersCites(Sources.Journal, kDossier).size(), 8);
  EXPECT_EQ(DossiersCites(Sources.Journal, kDossier).at(1), QStringLiteral("/19")) << "those of last";
}

TEST_F(Chronicle, TwoProgramsThatWriteTwoFoldersKeepTheirPhotos) {
  Intrusion(Le(22, 3), 1, 5);
  EntreeJournal autre = Sources.Journal.Entrees[0];
  autre.Course = QStringLiteral("r2");
  autre.Dossier = QStringLiteral("/q");
  Sources.Journal.Entrees.append(autre);
  Sources.Noms[QStringLiteral("/q")] = Sources.Noms[kDossier].mid(0, 3);
  EXPECT_EQ(DossiersCites(Sources.Journal, QStringLiteral("/now")),
            (QStringList{QStringLiteral("/now"), QStringLiteral("/q"), kDossier}));
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 2);
  EXPECT_EQ(c.Intrusions[0].Photos.size() + c.Intrusions[1].Photos.size(), 8);
  for (const IntrusionVue& vue : c.Intrusions) EXPECT_EQ(vue.Photos.size(), vue.Dossier == kDossier ? 5 : 3);
}

TEST_F(Chronicle, AClockThatRanBackwardsOrJumpedAYearMakesNoBandOfAYear) {
  EntreeJournal debut = Ajoute(Fait::kArmee, Le(22, 2));
  EntreeJournal& fin = Ajoute(Fait::kDesarmee, Le(22, 1));
  fin.DepuisDepart = debut.DepuisDepart + 600'000;
  Chronique c = Compose();
  ASSERT_EQ(c.Armees.size(), 1);
  EXPECT_EQ(c.Armees[0].De, Le(22, 0, 50));
  EXPECT_EQ(c.Armees[0].A, Le(22, 1));
  Sources.Journal.Entrees.last().Quand = Le(22, 2).addYears(1);
  c = Compose();
  EXPECT_EQ(c.Armees[0].De, Le(22, 1, 50).addYears(1));
  // An intrusion whose frames say an hour before the clock that wrote its end.
  Sources.Journal.Entrees.clear();
  Intrusion(Le(22, 3), 1, 5);
  Sources.Journal.Entrees[0].Depuis = Le(23, 3);
  c = Compose();
  EXPECT_EQ(c.Intrusions[0].Debut, Le(22, 3, 0, 10));
}

TEST_F(Chronicle, AMomentOfAnotherZoneIsTheSameMoment) {
  EntreeJournal& armee = Ajoute(Fait::kArmee, Le(22, 2));
  armee.Quand = armee.Quand.toOffsetFromUtc(9 * 3600);
  EntreeJournal& desarmee = Ajoute(Fait::kDesarmee, Le(22, 4));
  desarmee.Quand = desarmee.Quand.toOffsetFromUtc(-7200);
  const Chronique c = Compose();
  EXPECT_EQ(c.Armees[0].De, Le(22, 2));
  EXPECT_EQ(c.Armees[0].A, Le(22, 4));
}

TEST_F(Chronicle, AnEventIsABandByItself) {
  EntreeJournal& trou = Ajoute(Fait::kDebutCondition, Le(22, 5));
  trou.Mot = QStringLiteral("interruption");
  trou.Depuis = Le(22, 4);
  trou.Evenement = true;
  EntreeJournal& inconnue = Ajoute(Fait::kDebutCondition, Le(22, 6));
  inconnue.Mot = QStringLiteral("of-a-later-program");
  Ajoute(Fait::kDesarmee, Le(22, 7));  // of nothing
  EntreeJournal& orpheline = Ajoute(Fait::kFinCondition, Le(22, 7));
  orpheline.Mot = QStringLiteral("signal-lost");
  const Chronique c = Compose();
  ASSERT_EQ(c.Conditions.size(), 1);
  EXPECT_EQ(c.Conditions[0].De, Le(22, 4));
  EXPECT_EQ(c.Conditions[0].A, Le(22, 5));
  EXPECT_TRUE(c.Armees.isEmpty());
}

TEST_F(Chronicle, MarksAreMailsThePageAndTheRun) {
  Ajoute(Fait::kDemarre, Le(22, 1));
  Ajoute(Fait::kCourriel, Le(22, 3));
  Ajoute(Fait::kPageRetablie, Le(22, 2));
  Ajoute(Fait::kVie, Le(22, 2));
  const Chronique c = Compose();
  ASSERT_EQ(c.Marques.size(), 3);
  EXPECT_EQ(c.Marques[0].Quoi, Fait::kDemarre);
  EXPECT_EQ(c.Marques[1].Quoi, Fait::kPageRetablie);
  EXPECT_EQ(c.Marques[2].Quoi, Fait::kCourriel);
}

class OldPhotos : public Chronicle {
 protected:
  void Pose(int jour, const QTime& heure, int numero) { Sources.Noms[kDossier].append(Nom(jour, heure, numero)); }
};

TEST_F(OldPhotos, APauseOfMoreThanTenSecondsPartsThem) {
  for (const int s : {0, 1, 11, 22, 33}) Pose(22, QTime(3, 0, s), s + 1);
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 3);
  EXPECT_EQ(c.Intrusions[0].Photos.size(), 3);
  EXPECT_EQ(c.Intrusions[0].DureeMs, 11000);
  EXPECT_EQ(c.Intrusions[0].Parlante, Nom(22, QTime(3, 0, 1), 2));
  EXPECT_EQ(c.Intrusions[0].Cadre, QRect());
  EXPECT_EQ(c.Intrusions[1].Debut, Le(22, 3, 0, 22));
}

TEST_F(OldPhotos, ThoseOfTwoDaysAreTwoWhateverTheTimeOfDay) {
  Pose(20, QTime(3, 0, 0), 1);
  Pose(21, QTime(3, 0, 1), 2);
  EXPECT_EQ(Compose().Intrusions.size(), 2);
}

TEST_F(OldPhotos, ThoseOfTwoNightsWithOneDayInTheirNamesAreParted) {
  // One run over two nights: the same time of day, other numbers.
  for (int i = 0; i < 3; ++i) Pose(20, QTime(3, 0, i), 100 + i);
  for (int i = 0; i < 3; ++i) Pose(20, QTime(3, 0, 2 + i), 5000 + i);
  Sources.DonneDate = [](const QString&, const QString& nom) {
    return nom.contains(u"Photo 05") ? Le(22, 3, 0, 3) : Le(21, 3);
  };
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 2);
  EXPECT_EQ(c.Intrusions[0].Debut, Le(21, 3));
  EXPECT_EQ(c.Intrusions[1].Debut, Le(22, 3, 0, 2));
  EXPECT_EQ(c.Intrusions[1].Photos.size(), 3);
}

TEST_F(OldPhotos, TheFilesOwnTimeCountsOnlyIfItIsThatOfTheName) {
  Pose(20, QTime(3, 0, 0), 1);
  Sources.DonneDate = [](const QString&, const QString&) { return Le(25, 14); };  // a copy
  EXPECT_EQ(Compose().Intrusions[0].Debut, Le(20, 3));
  Sources.DonneDate = [](const QString&, const QString&) { return Le(19, 3); };  // before the run
  EXPECT_EQ(Compose().Intrusions[0].Debut, Le(20, 3));
  Sources.DonneDate = [](const QString&, const QString&) { return QDateTime(); };
  EXPECT_EQ(Compose().Intrusions[0].Debut, Le(20, 3));
  // Written a moment after midnight, taken a moment before.
  Sources.Noms[kDossier] = {Nom(20, QTime(23, 59, 59), 1)};
  Sources.DonneDate = [](const QString&, const QString&) { return Le(22, 0, 0, 1); };
  EXPECT_EQ(Compose().Intrusions[0].Debut, Le(21, 23, 59, 59));
}

TEST_F(OldPhotos, NamesThatAreNotOursAreNoPhotosOfOurs) {
  Sources.Noms[kDossier] = {QStringLiteral("holiday.jpg"), QStringLiteral("Live.jpg")};
  EXPECT_TRUE(Compose().Intrusions.isEmpty());
}

TEST_F(OldPhotos, WhatTheJournalClaimsIsInNoGroup) {
  Intrusion(Le(22, 3), 1, 5);
  Pose(22, QTime(2, 0, 0), 900);
  const Chronique c = Compose();
  ASSERT_EQ(c.Intrusions.size(), 2);
  EXPECT_EQ(c.Intrusions[0].Photos, QStringList{Nom(22, QTime(2, 0, 0), 900)});
}

}  // namespace
}  // namespace vaktor
