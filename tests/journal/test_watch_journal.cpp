// SPDX-License-Identifier: GPL-3.0-or-later
// What the owner of the journal writes, in virtual time.
#include <gtest/gtest.h>

#include "engine/ports/moment.h"
#include "fakes/fake_journal_file.h"
#include "fakes/virtual_clock.h"
#include "fakes/virtual_timers.h"
#include "journal/watch_journal.h"

namespace vaktor {
namespace {

class WatchJournal : public testing::Test {
 protected:
  /// The words of the lines since the last call.
  std::string Prend() {
    QStringList mots;
    for (const EntreeJournal& entree : Fichier.Entrees().mid(Lues)) {
      const QByteArray ligne = EcritLigne({.Quoi = entree.Quoi, .Quand = entree.Quand});
      const qsizetype debut = ligne.indexOf("\"what\":\"") + 8;
      mots.append(QString::fromLatin1(ligne.mid(debut, ligne.indexOf('"', debut) - debut)));
    }
    Lues = Fichier.Entrees().size();
    return mots.join(u' ').toStdString();
  }
  EntreeJournal Derniere() const { return Fichier.Entrees().constLast(); }
  QString Photo(int numero) const {
    return QStringLiteral("2020-01-02  %1 Photo %2.jpg")
        .arg(Horloge.DonneHeure().toString(QStringLiteral("hh-mm-ss")))
        .arg(numero, 5, 10, QLatin1Char('0'));
  }
  void Agit(int points, const QRect& cadre, int numero) {
    Journal.NoteImage(points, cadre);
    Journal.NotePhoto(QStringLiteral("/p"), Photo(numero));
  }
  void Arme() {
    Journal.Lance();
    Armee = true;
    Temps.Avance(1000);
    Prend();
  }

  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::FichierJournalFaux Fichier;
  bool Armee = false;
  bool Page = false;
  qsizetype Lues = 0;
  JournalVeille Journal{
      {Horloge, Temps, Fichier, QStringLiteral("r1"), [this] { return Armee; }, [this] { return Page; }}};
};

TEST_F(WatchJournal, BeginsWithTheRunAndEndsWithIt) {
  EXPECT_EQ(Prend(), "");
  Journal.Lance();
  EXPECT_EQ(Prend(), "started");
  EXPECT_EQ(Derniere().Course, QStringLiteral("r1"));
  EXPECT_EQ(Derniere().Quand, QDateTime(QDate(2020, 1, 2), QTime(9, 5, 3)));
  Temps.Avance(3000);
  Journal.Arrete();
  EXPECT_EQ(Prend(), "stopped");
  EXPECT_EQ(Derniere().DepuisDepart, 3000);
  Armee = true;
  Temps.Avance(5000);
  Journal.NoteImage(31, {});
  Journal.NoteCourriel();
  Journal.Arrete();
  EXPECT_EQ(Prend(), "");
}

TEST_F(WatchJournal, TheSlateIsWrittenWithTheFirstFrameAndSaysWhichPhotosHadTheMostMovement) {
  Arme();
  const QDateTime debut = LitMoment(Horloge);
  Journal.NoteImage(40, QRect(1, 2, 3, 4), QSize(640, 480));
  ASSERT_EQ(Fichier.Ardoises.size(), 1) << "photos may be off";
  EXPECT_EQ(Fichier.Ardoise(), (ArdoiseIntrusion{debut, debut, QSize(640, 480), {}}));
  Journal.NotePhoto(QStringLiteral("/p"), QStringLiteral("a.jpg"));
  Temps.Avance(100);
  Agit(400, QRect(5, 6, 7, 8), 2);
  Journal.NoteCopie(Photo(2));
  Journal.NoteCopie(QStringLiteral("copy.jpg"));
  const QList<PhotoArdoise> photos = Fichier.Ardoise().Photos;
  ASSERT_EQ(photos.size(), 3);
  EXPECT_EQ(photos[0], (PhotoArdoise{Photo(2), 400, QRect(5, 6, 7, 8)}));
  EXPECT_EQ(photos[1], (PhotoArdoise{QStringLiteral("copy.jpg"), 400, QRect(5, 6, 7, 8)}));
  EXPECT_EQ(photos[2], (PhotoArdoise{QStringLiteral("a.jpg"), 40, QRect(1, 2, 3, 4)}));
  EXPECT_EQ(Fichier.Ardoise().Depuis, debut);
  EXPECT_EQ(Fichier.Ardoise().Jusqua, debut.addMSecs(100));
}

TEST_F(WatchJournal, TheNextIntrusionHasASlateOfItsOwn) {
  Arme();
  Agit(400, QRect(1, 1, 2, 2), 1);
  Temps.Avance(20'000);
  const QDateTime debut = LitMoment(Horloge);
  Agit(50, QRect(1, 1, 2, 2), 2);
  ASSERT_EQ(Fichier.Ardoise().Photos.size(), 1);
  EXPECT_EQ(Fichier.Ardoise().Photos.constFirst().Points, 50);
  EXPECT_EQ(Fichier.Ardoise().Depuis, debut);
  Journal.Arrete();
  Journal.NoteCopie(QStringLiteral("late.jpg"));
  EXPECT_EQ(Fichier.Ardoise().Photos.size(), 1);
}

TEST_F(WatchJournal, NothingIsWrittenBeforeTheRunBegins) {
  Armee = true;
  Temps.Avance(20000);
  Agit(100, QRect(1, 1, 2, 2), 1);
  Journal.NoteCourriel();
  Journal.Commence({Condition::kSignalPerdu, Horloge.DonneDate().startOfDay(), {}, 0});
  Journal.Arrete();
  EXPECT_TRUE(Fichier.Lignes.isEmpty());
}

TEST_F(WatchJournal, ArmedAndDisarmedAreToldToTheSecond) {
  Journal.Lance();
  Temps.Avance(5000);
  EXPECT_EQ(Prend(), "started");
  Armee = true;
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "armed");
  Temps.Avance(10000);
  EXPECT_EQ(Prend(), "");
  Armee = false;
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "disarmed");
}

TEST_F(WatchJournal, AKillLeavesNoWordSoAnArmedWatchGivesASignOfLifeEachTenMinutes) {
  Arme();
  Temps.Avance(JournalVeille::kVieMs - 1000);
  EXPECT_EQ(Prend(), "");
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "alive");
  Temps.Avance(JournalVeille::kVieMs);
  EXPECT_EQ(Prend(), "alive");
  Armee = false;
  Temps.Avance(2 * JournalVeille::kVieMs);
  EXPECT_EQ(Prend(), "disarmed");
}

TEST_F(WatchJournal, AnIntrusionIsOverWhenNothingActedForTenSeconds) {
  Arme();
  Agit(40, QRect(1, 2, 3, 4), 1);
  EXPECT_EQ(Prend(), "");
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "intrusion-begins");
  EXPECT_EQ(Derniere().Premiere, QStringLiteral("2020-01-02  09-05-04 Photo 00001.jpg"));
  EXPECT_EQ(Derniere().Dossier, QStringLiteral("/p"));
  EXPECT_EQ(Derniere().Depuis, QDateTime(QDate(2020, 1, 2), QTime(9, 5, 4)));
  Temps.Avance(8000);
  Agit(90, QRect(5, 6, 7, 8), 2);
  Temps.Avance(1000);
  Agit(60, QRect(9, 9, 9, 9), 3);
  Temps.Avance(9000);
  EXPECT_EQ(Prend(), "");
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "intrusion-ends");
  const EntreeJournal fin = Derniere();
  EXPECT_EQ(fin.Images, 3);
  EXPECT_EQ(fin.Points, 90);
  EXPECT_EQ(fin.Cadre, QRect(5, 6, 7, 8));
  EXPECT_EQ(fin.Photos, 3);
  EXPECT_EQ(fin.DureeMs, 10000);
  EXPECT_EQ(fin.Depuis, QDateTime(QDate(2020, 1, 2), QTime(9, 5, 4)));
  EXPECT_EQ(fin.Premiere, QStringLiteral("2020-01-02  09-05-04 Photo 00001.jpg"));
  EXPECT_EQ(fin.Meilleure, QStringLiteral("2020-01-02  09-05-13 Photo 00002.jpg"));
  EXPECT_EQ(fin.Derniere, QStringLiteral("2020-01-02  09-05-14 Photo 00003.jpg"));
  const QList<CadrePhoto> cadres = {{1, QRect(1, 2, 3, 4)}, {2, QRect(5, 6, 7, 8)}, {3, QRect(9, 9, 9, 9)}};
  EXPECT_EQ(fin.Cadres, cadres);
  Agit(50, QRect(1, 1, 1, 1), 4);
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "intrusion-begins");
}

TEST_F(WatchJournal, AFrameThatActedWithoutAPhotoLeavesTheBestToThePhotos) {
  Arme();
  Agit(40, QRect(1, 2, 3, 4), 1);
  Journal.NoteImage(500, QRect(5, 5, 5, 5));  // its photo failed
  Agit(90, QRect(7, 7, 7, 7), 3);
  Temps.Avance(12000);
  EXPECT_EQ(Derniere().Images, 3);
  EXPECT_EQ(Derniere().Points, 500);
  EXPECT_EQ(Derniere().Photos, 2);
  EXPECT_EQ(Derniere().Meilleure, QStringLiteral("2020-01-02  09-05-04 Photo 00001.jpg"));
}

TEST_F(WatchJournal, MovementWithPhotosSwitchedOffIsAnIntrusionToo) {
  Arme();
  Journal.NoteImage(40, QRect(1, 2, 3, 4));
  Temps.Avance(12000);
  EXPECT_EQ(Prend(), "intrusion-begins intrusion-ends");
  EXPECT_EQ(Derniere().Photos, 0);
  EXPECT_EQ(Derniere().Images, 1);
}

TEST_F(WatchJournal, AnIntrusionEndsWithTheAlarmAndWithTheProgram) {
  Arme();
  Agit(40, QRect(1, 2, 3, 4), 1);
  Armee = false;
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "intrusion-begins intrusion-ends disarmed");
  Armee = true;
  Temps.Avance(1000);
  Agit(40, QRect(1, 2, 3, 4), 2);
  Journal.Arrete();
  EXPECT_EQ(Prend(), "armed intrusion-ends disarmed stopped");
}

TEST_F(WatchJournal, ArmedIsToldBeforeTheMovementThatFollowsWithinItsSecond) {
  Journal.Lance();
  Temps.Avance(5000);
  Prend();
  Armee = true;
  Agit(40, QRect(1, 2, 3, 4), 1);
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "armed intrusion-begins");
}

TEST_F(WatchJournal, ALongIntrusionKeepsABoxOfEverySecondPhotoThenOfEveryFourth) {
  Arme();
  for (int i = 0; i < 2000; ++i) Agit(40, QRect(i % 300, 2, 3, 4), i);
  Temps.Avance(12000);
  const QList<CadrePhoto> cadres = Derniere().Cadres;
  ASSERT_GT(cadres.size(), kCadresMax / 2 - 1);
  EXPECT_LT(cadres.size(), kCadresMax);
  for (qsizetype i = 0; i < cadres.size(); ++i) {
    ASSERT_EQ(cadres[i].Numero, 4 * i);
    ASSERT_EQ(cadres[i].Cadre, QRect(static_cast<int>(4 * i) % 300, 2, 3, 4));
  }
}

TEST_F(WatchJournal, AConditionHasItsBeginningAndItsEnd) {
  Journal.Lance();
  Prend();
  const ConditionEnCours perdue{Condition::kSignalPerdu, QDateTime(QDate(2020, 1, 2), QTime(9, 4, 50)),
                                QStringLiteral("/dev/video0"), 0};
  Journal.Commence(perdue);
  EXPECT_EQ(Derniere().Mot, QStringLiteral("signal-lost"));
  EXPECT_EQ(Derniere().Detail, QStringLiteral("/dev/video0"));
  EXPECT_EQ(Derniere().Depuis, perdue.Depuis);
  EXPECT_FALSE(Derniere().Evenement);
  Journal.Finit(perdue, {});
  EXPECT_EQ(Derniere().Mot, QStringLiteral("signal-lost"));
  EXPECT_EQ(Prend(), "condition-begins condition-ends");
}

TEST_F(WatchJournal, AGapOfTheMachineBeginsWhereTheClockWasLastLookedAt) {
  Journal.Lance();
  Temps.Avance(5000);
  const QDateTime avant = LitMoment(Horloge);
  // The machine sleeps for an hour: the counter stands still meanwhile.
  Horloge.Debut = Horloge.Debut.addSecs(3600);
  Temps.Avance(1000);
  Prend();
  const ConditionEnCours trou{Condition::kInterruption, LitMoment(Horloge), QStringLiteral("9:05 to 10:05"), 0};
  Journal.Commence(trou);
  EXPECT_TRUE(Derniere().Evenement);
  EXPECT_EQ(Derniere().Depuis, avant);
  Journal.Finit(trou, {});  // seen by the user: it was over long ago
  EXPECT_EQ(Prend(), "condition-begins");
}

TEST_F(WatchJournal, ATickThatComesLateIsNoGapAndAGapExplainsWhatIsToldSoonBehindItAlone) {
  Journal.Lance();
  Temps.Avance(5000);
  Horloge.Debut = Horloge.Debut.addMSecs(14'000);
  Temps.Avance(1000);
  const QDateTime dit = LitMoment(Horloge);
  const ConditionEnCours trou{Condition::kInterruption, dit, {}, 0};
  Journal.Commence(trou);
  EXPECT_EQ(Derniere().Depuis, dit) << "fifteen seconds are a busy machine";
  Horloge.Debut = Horloge.Debut.addSecs(3600);
  Temps.Avance(1000);
  const ConditionEnCours perdue{Condition::kSignalPerdu, LitMoment(Horloge), {}, 0};
  Journal.Commence(perdue);
  EXPECT_EQ(Derniere().Depuis, perdue.Depuis) << "the gap itself alone began before it";
  Temps.Avance(130'000);
  const ConditionEnCours autre{Condition::kInterruption, LitMoment(Horloge), {}, 0};
  Journal.Commence(autre);
  EXPECT_EQ(Derniere().Depuis, autre.Depuis) << "that one is told already";
}

TEST_F(WatchJournal, AMovementBehindTicksThatWereHeldUpIsAnotherIntrusion) {
  Arme();
  Agit(40, QRect(1, 2, 3, 4), 1);
  Temps.Avance(1000);
  Horloge.Millisecondes += 12'000;  // no tick meanwhile
  Agit(60, QRect(1, 2, 3, 4), 2);
  EXPECT_EQ(Prend(), "intrusion-begins intrusion-ends");
  EXPECT_EQ(Derniere().Photos, 1);
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "intrusion-begins");
}

TEST_F(WatchJournal, TheFirstOfEqualMovementsIsTheBest) {
  Arme();
  Agit(40, QRect(1, 2, 3, 4), 1);
  Agit(40, QRect(9, 9, 9, 9), 2);
  Temps.Avance(12000);
  EXPECT_EQ(Derniere().Cadre, QRect(1, 2, 3, 4));
  EXPECT_EQ(Derniere().Meilleure, Derniere().Premiere);
}

TEST_F(WatchJournal, PhotosOfAnotherFolderAreCountedAndNotNamed) {
  Arme();
  Agit(40, QRect(1, 2, 3, 4), 1);
  Journal.NoteImage(90, QRect(5, 5, 5, 5));
  Journal.NotePhoto(QStringLiteral("/q"), Photo(2));
  Temps.Avance(12000);
  EXPECT_EQ(Derniere().Photos, 2);
  EXPECT_EQ(Derniere().Dossier, QStringLiteral("/p"));
  EXPECT_EQ(Derniere().Derniere, Derniere().Premiere);
  EXPECT_EQ(Derniere().Meilleure, Derniere().Premiere);
  EXPECT_EQ(Derniere().Cadres.size(), 1);
}

TEST_F(WatchJournal, ThePageIsFreshAgainOnlyWhileItIsSwitchedOn) {
  Journal.Lance();
  Prend();
  const ConditionEnCours vieille{Condition::kPageAncienne, LitMoment(Horloge), {}, 0};
  Journal.Commence(vieille);
  Page = true;
  Journal.Finit(vieille, {});
  EXPECT_EQ(Prend(), "condition-begins condition-ends page-refreshed");
  Page = false;
  Journal.Commence(vieille);
  Journal.Finit(vieille, {});
  EXPECT_EQ(Prend(), "condition-begins condition-ends");
}

TEST_F(WatchJournal, TheEndOfAnythingElseRefreshesNoPage) {
  Journal.Lance();
  Page = true;
  const ConditionEnCours perdue{Condition::kSignalPerdu, LitMoment(Horloge), {}, 0};
  Journal.Commence(perdue);
  Prend();
  Journal.Finit(perdue, {});
  EXPECT_EQ(Prend(), "condition-ends");
}

TEST_F(WatchJournal, AMailThatAServerHasTakenIsALine) {
  Journal.Lance();
  Prend();
  Journal.NoteCourriel();
  EXPECT_EQ(Prend(), "mail-accepted");
}

TEST_F(WatchJournal, WhoShowsItIsToldOfEachLine) {
  int lignes = 0;
  Journal.SurChangement([&] { ++lignes; });
  Journal.Lance();
  Armee = true;
  Temps.Avance(1000);
  EXPECT_EQ(lignes, 2);
}

TEST_F(WatchJournal, NothingThatFailsOnTheWayComesOut) {
  Journal.SurChangement([] { throw std::bad_alloc(); });
  Journal.Lance();
  Arme();
  Agit(40, QRect(1, 2, 3, 4), 1);
  Temps.Avance(12000);
  Journal.Arrete();
  EXPECT_FALSE(Fichier.Lignes.isEmpty());
}

}  // namespace
}  // namespace vaktor
