// SPDX-License-Identifier: GPL-3.0-or-later
// What stands, since when, from when on it counts, and who is told.
#include <limits>
#include <new>

#include "health_bench.h"

namespace vaktor {
namespace {

class Sante : public BancSante {};

TEST_F(Sante, AConditionStandsSinceItsFirstReportWithItsLatestDetail) {
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("full"));
  Temps.Avance(5000);
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("gone"));
  const QList<ConditionEnCours> liste = Veille.EnCours();
  ASSERT_EQ(liste.size(), 1);
  EXPECT_EQ(liste[0].Quoi, Condition::kPhotosImpossibles);
  EXPECT_EQ(liste[0].Depuis, QDateTime(QDate(2020, 1, 2), QTime(9, 5, 3)));
  EXPECT_EQ(liste[0].Detail, QStringLiteral("gone"));
}

TEST_F(Sante, AConditionThatEndedStandsNoLonger) {
  Veille.Signale(Condition::kSignalPerdu);
  Veille.Signale(Condition::kReglagesNonSauves);
  Veille.Leve(Condition::kSignalPerdu);
  ASSERT_EQ(Veille.EnCours().size(), 1);
  EXPECT_EQ(Veille.EnCours()[0].Quoi, Condition::kReglagesNonSauves);
}

TEST_F(Sante, CountsOnlyWhenItHasLastedWithoutAGap) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(4000);
  Veille.Leve(Condition::kSignalPerdu);
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(4000);
  EXPECT_EQ(Note.Prend(), "");
  EXPECT_TRUE(Veille.Comptees().isEmpty());
  Temps.Avance(2000);
  EXPECT_EQ(Note.Prend(), "+signal-lost");
  ASSERT_EQ(Veille.Comptees().size(), 1);
  EXPECT_EQ(Veille.Comptees()[0].Depuis.time(), QTime(9, 5, 7)) << "since it was reported, not since it counts";
}

TEST_F(Sante, CountsFromTheMillisecondOnThatItIsToLast) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(DonneDuree(Condition::kSignalPerdu) - 1);
  EXPECT_EQ(Note.Prend(), "");
  Temps.Avance(1);
  EXPECT_EQ(Note.Prend(), "+signal-lost");
}

TEST_F(Sante, TheEndOfOneThatNeverCountedIsToldToNobody) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(3000);
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(60000);
  EXPECT_EQ(Note.Prend(), "");
  EXPECT_EQ(Note.Changements, 0);
}

TEST_F(Sante, BeginningAndEndAreToldOnceEachHoweverOftenTheyAreReported) {
  for (int i = 0; i < 300; ++i) {
    Veille.Signale(Condition::kSignalPerdu);
    Temps.Avance(33);
  }
  EXPECT_EQ(Note.Prend(), "+signal-lost");
  for (int i = 0; i < 100; ++i) {
    Veille.Leve(Condition::kSignalPerdu);
    Temps.Avance(33);
  }
  EXPECT_EQ(Note.Prend(), "-signal-lost");
  EXPECT_EQ(Note.Changements, 2);
}

TEST_F(Sante, ToldFromTheTickAndNeverFromInsideAReport) {
  Veille.Signale(Condition::kPhotosImpossibles);
  EXPECT_EQ(Note.Prend(), "");
  Temps.Avance(1000);
  EXPECT_EQ(Note.Prend(), "+photos-not-written");
  Veille.Leve(Condition::kPhotosImpossibles);
  EXPECT_EQ(Note.Prend(), "");
  Temps.Avance(1000);
  EXPECT_EQ(Note.Prend(), "-photos-not-written");
}

TEST_F(Sante, WhatCountsAtOnceIsToldEvenIfItEndsBeforeTheTick) {
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("full"));
  Veille.Leve(Condition::kPhotosImpossibles);
  EXPECT_TRUE(Veille.EnCours().isEmpty());
  Temps.Avance(1000);
  EXPECT_EQ(Note.Prend(), "+photos-not-written -photos-not-written");
}

TEST_F(Sante, OneThatIsTakenBackAndReportedAgainWithinATickGoesOn) {
  Veille.Signale(Condition::kPhotosImpossibles);
  Temps.Avance(1000);
  Note.Prend();
  Veille.Leve(Condition::kPhotosImpossibles);
  Veille.Signale(Condition::kPhotosImpossibles);
  Temps.Avance(3000);
  EXPECT_EQ(Note.Prend(), "");
  EXPECT_EQ(Veille.EnCours()[0].Depuis.time(), QTime(9, 5, 3));
}

// After 24.8 days the counter's sign turns, after 49.7 it is back at 0.
TEST_F(Sante, DurationsSurviveAClockThatIsSetAndACounterThatWraps) {
  for (const qint64 tournant :
       {qint64{std::numeric_limits<qint32>::max()}, qint64{std::numeric_limits<quint32>::max()}}) {
    Horloge.Millisecondes = tournant - 2500;
    Veille.Signale(Condition::kSignalPerdu);
    Horloge.Date = Horloge.Date.addDays(-400);  // somebody sets the clock back
    Temps.Avance(4000);
    EXPECT_EQ(Note.Prend(), "") << tournant;
    Temps.Avance(2000);
    EXPECT_EQ(Note.Prend(), "+signal-lost") << tournant;
    Veille.Leve(Condition::kSignalPerdu);
    Temps.Avance(1000);
    EXPECT_EQ(Note.Prend(), "-signal-lost") << tournant;
  }
}

TEST_F(Sante, TheTimerRestsWhileNothingIsReported) {
  EXPECT_FALSE(Tourne());
  Veille.Signale(Condition::kSignalPerdu);
  EXPECT_TRUE(Tourne());
  Temps.Avance(7000);
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(1000);
  EXPECT_FALSE(Tourne());
  EXPECT_EQ(Note.Prend(), "+signal-lost -signal-lost");
}

TEST_F(Sante, TheTimerGoesOnWhileAnObserverWantsIt) {
  Note.EnVeutEncore = true;
  Veille.Signale(Condition::kPhotosImpossibles);
  Veille.Leve(Condition::kPhotosImpossibles);
  Temps.Avance(10000);
  EXPECT_TRUE(Tourne());
  Note.EnVeutEncore = false;
  Temps.Avance(1000);
  EXPECT_FALSE(Tourne());
}

TEST_F(Sante, AChangedDetailIsToldAsAChange) {
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("full"));
  Temps.Avance(1000);
  const int avant = Note.Changements;
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("full"));
  Temps.Avance(1000);
  EXPECT_EQ(Note.Changements, avant);
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("gone"));
  Temps.Avance(1000);
  EXPECT_EQ(Note.Changements, avant + 1);
  Temps.Avance(10000);
  EXPECT_EQ(Note.Changements, avant + 1) << "once";
}

TEST_F(Sante, TheListHasTheWorstFirstAndThenTheOldest) {
  Veille.Signale(Condition::kPeuDePlace);
  Veille.Signale(Condition::kCompagnonSon);
  Temps.Avance(2000);
  Veille.Signale(Condition::kPhotosImpossibles);
  Veille.Signale(Condition::kDetectionArretee);
  Temps.Avance(10000);
  QStringList mots;
  for (const ConditionEnCours& condition : Veille.Comptees()) mots.append(MotCondition(condition.Quoi));
  EXPECT_EQ(mots.join(u' ').toStdString(), "detection-stopped sound-companion photos-not-written little-space");
}

TEST_F(Sante, AnEventStandsUntilItWasSeenAndCannotBeTakenBack) {
  Veille.Signale(Condition::kInterruption, QStringLiteral("3 min"));
  Veille.OublieEvenements();  // the list was closed before anybody could see it there
  Veille.Leve(Condition::kInterruption);
  Temps.Avance(5000);
  EXPECT_EQ(Note.Prend(), "+interruption");
  ASSERT_EQ(Veille.Comptees().size(), 1);
  const int avant = Note.Changements;
  Veille.OublieEvenements();
  EXPECT_EQ(Note.Prend(), "-interruption");
  EXPECT_EQ(Note.Changements, avant + 1);
  EXPECT_TRUE(Veille.Comptees().isEmpty());
}

// A machine that sleeps each night, and nobody who closes the list in the morning.
TEST_F(Sante, AnEventThatHappensOnceMoreWhileItStandsIsToldOnceMore) {
  Veille.Signale(Condition::kInterruption, QStringLiteral("3 min"));
  Temps.Avance(1000);
  EXPECT_EQ(Note.Prend(), "+interruption");
  Temps.Avance(3'600'000);
  const QDateTime puis = LitMoment(Horloge);
  Veille.Signale(Condition::kInterruption, QStringLiteral("3 min, 8 min"));
  Veille.OublieEvenements();  // closed before anybody could see it there
  Temps.Avance(1000);
  EXPECT_EQ(Note.Prend(), "+interruption");
  EXPECT_EQ(Note.Depuis, puis);
  Veille.Signale(Condition::kInterruption, QStringLiteral("3 min, 8 min"));
  Temps.Avance(5000);
  EXPECT_EQ(Note.Prend(), "") << "nothing new";
  ASSERT_EQ(Veille.Comptees().size(), 1);
  Veille.OublieEvenements();
  EXPECT_EQ(Note.Prend(), "-interruption");
}

TEST_F(Sante, ANewDetailOfWhatGoesOnIsNoNewBeginning) {
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("full"));
  Temps.Avance(1000);
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("gone"));
  Temps.Avance(1000);
  EXPECT_EQ(Note.Prend(), "+photos-not-written");
}

TEST_F(Sante, LookingAtTheListTakesNothingElseAway) {
  Veille.Signale(Condition::kPhotosImpossibles);
  Temps.Avance(1000);
  Veille.OublieEvenements();
  EXPECT_EQ(Veille.Comptees().size(), 1);
}

// A start may fail, and the language is not known yet: what is reported meanwhile is kept, with its time.
TEST(SanteAvantLeDebut, NothingIsToldBeforeTheStartIsOverAndNothingAfterTheEnd) {
  faux::HorlogeVirtuelle horloge;
  faux::TempsVirtuel temps(horloge);
  ObservateurNote note;
  SanteVeille veille(horloge, temps);
  veille.Observe(note);
  veille.Signale(Condition::kReglagesNonSauves);
  temps.Avance(10000);
  EXPECT_EQ(note.Prend(), "");
  veille.Lance();
  temps.Avance(1000);
  EXPECT_EQ(note.Prend(), "+settings-not-saved");
  EXPECT_EQ(veille.Comptees()[0].Depuis.time(), QTime(9, 5, 3));
  veille.Arrete();
  veille.Leve(Condition::kReglagesNonSauves);
  veille.Signale(Condition::kSignalPerdu);
  temps.Avance(60000);
  EXPECT_EQ(note.Prend(), "");
}

TEST(Conditions, EachHasItsWordsInBothLanguagesAndAWordOfItsOwn) {
  QStringList mots;
  for (int i = 0; i < kNombreConditions; ++i) {
    const auto quoi = static_cast<Condition>(i);
    mots.append(MotCondition(quoi));
    EXPECT_FALSE(MotCondition(quoi).isEmpty());
    for (const Langue langue : kLangues) {
      EXPECT_TRUE(PhraseQuoi(quoi, {}, langue).endsWith(u'.')) << i;
      EXPECT_TRUE(PhraseFaire(quoi, langue).endsWith(u'.')) << i;
      EXPECT_TRUE(PhraseQuoi(quoi, QStringLiteral("why\nso."), langue).endsWith(QStringLiteral(" (why so)."))) << i;
    }
    EXPECT_NE(PhraseQuoi(quoi, {}, Langue::kFrancais), PhraseQuoi(quoi, {}, Langue::kAnglais)) << i;
    EXPECT_NE(PhraseFaire(quoi, Langue::kFrancais), PhraseFaire(quoi, Langue::kAnglais)) << i;
  }
  EXPECT_EQ(mots.removeDuplicates(), 0);
}

// A companion that died is started again after a second, a tick may stumble: neither is told before that could have
// mended it. What could not be written or sent is told at once.
TEST(Conditions, LastAsLongAsTheyMayMendThemselvesBeforeTheyAreTold) {
  EXPECT_EQ(DonneDuree(Condition::kDetectionArretee), 5000);
  for (const Condition compagnon : {Condition::kCompagnonFtp, Condition::kCompagnonMail, Condition::kCompagnonSon})
    EXPECT_EQ(DonneDuree(compagnon), 1000);
  for (const Condition perte : {Condition::kPhotosImpossibles, Condition::kReglagesNonSauves})
    EXPECT_EQ(DonneDuree(perte), 0);
}

TEST(Conditions, OnlyALostAwaitedOrFrozenCameraAndAStoppedDetectionMakeBlind) {
  for (int i = 0; i < kNombreConditions; ++i) {
    const auto quoi = static_cast<Condition>(i);
    const bool aveugle = quoi == Condition::kSignalPerdu || quoi == Condition::kDetectionArretee ||
                         quoi == Condition::kCameraAttendue || quoi == Condition::kImageFigee;
    EXPECT_EQ(DonneGravite(quoi) == Gravite::kAveugle, aveugle) << i;
  }
}

// A start that nobody watched has passed when somebody comes: what it found would be gone again.
TEST(Conditions, WhatIsOverWhenItIsToldStandsUntilItWasSeen) {
  for (int i = 0; i < kNombreConditions; ++i) {
    const auto quoi = static_cast<Condition>(i);
    const bool evenement =
        quoi == Condition::kInterruption || quoi == Condition::kReglagesAbimes || quoi == Condition::kDossierRemplace;
    EXPECT_EQ(EstEvenement(quoi), evenement) << i;
  }
}

TEST(Conditions, AMomentIsSaidInBothLanguages) {
  const QDateTime moment(QDate(2020, 1, 2), QTime(9, 5, 3));
  EXPECT_EQ(DitMoment(moment, Langue::kFrancais), QString::fromUtf8("2 janvier 2020 à 09:05:03"));
  EXPECT_EQ(DitMoment(moment, Langue::kAnglais), QStringLiteral("2 January 2020, 09:05:03"));
}

/// Has no memory when it is told, and counts what it was told.
class ObservateurSansMemoire : public ObservateurSante {
 public:
  void Commence(const ConditionEnCours&) override { Jette(); }
  void Finit(const ConditionEnCours&, const QDateTime&) override { Jette(); }
  void Change() override { Jette(); }
  bool Tic(qint64) override {
    Jette();
    return false;
  }
  bool SansMemoire = true;
  int Dits = 0;

 private:
  void Jette() {
    ++Dits;
    if (SansMemoire) throw std::bad_alloc();
  }
};

TEST(SanteSansMemoire, AnObserverThatThrowsKeepsNobodyFromBeingTold) {
  faux::HorlogeVirtuelle horloge;
  faux::TempsVirtuel temps(horloge);
  SanteVeille veille(horloge, temps);
  ObservateurSansMemoire premier;
  ObservateurNote second;
  veille.Observe(premier);
  veille.Observe(second);
  veille.Lance();
  veille.Signale(Condition::kPhotosImpossibles);
  veille.Signale(Condition::kReglagesNonSauves);
  veille.Signale(Condition::kInterruption);
  EXPECT_THROW(temps.Avance(1000), std::bad_alloc) << "the guard of the event loop is told";
  EXPECT_EQ(premier.Dits, 5) << "three beginnings, the change and the tick";
  EXPECT_EQ(second.Notes.size(), 3);
  EXPECT_EQ(second.Changements, 1);
  EXPECT_EQ(second.Tics.size(), 1);
  EXPECT_THROW(veille.OublieEvenements(), std::bad_alloc);
  EXPECT_EQ(second.Notes.last(), "-interruption");
  EXPECT_EQ(second.Changements, 2);
  veille.Leve(Condition::kPhotosImpossibles);
  veille.Leve(Condition::kReglagesNonSauves);
  EXPECT_THROW(temps.Avance(1000), std::bad_alloc);
  EXPECT_EQ(second.Notes.size(), 6);
  EXPECT_TRUE(temps.Trouve(QStringLiteral("Sante"))->EstActive()) << "whoever has thrown may want another tick";
  premier.SansMemoire = false;
  temps.Avance(1000);
  EXPECT_FALSE(temps.Trouve(QStringLiteral("Sante"))->EstActive());
}

}  // namespace
}  // namespace vaktor
