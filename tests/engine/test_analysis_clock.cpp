// SPDX-License-Identifier: GPL-3.0-or-later
// Time without an end: the rule that fails on overflow, and why it never has to. The counter of milliseconds ends after
// 24.8 days.
#include "base/failure.h"
#include "engine/analysis_clock.h"
#include "engine/engine_fixture.h"

namespace vaktor {
namespace {

constexpr qint64 kHeureMs = 3'600'000;
constexpr qint64 kJourMs = 24 * kHeureMs;
constexpr qint64 kFinMs = qint64{1} << 31;

TEST(TempsAnalyse, DifferenceAcrossTheEndOfTheCounterFails) {
  faux::HorlogeVirtuelle horloge;
  TempsAnalyse temps(horloge);
  horloge.Millisecondes = 20'000;
  temps.NoteTick();
  temps.NoteLive();
  horloge.Millisecondes = kFinMs - 1;
  EXPECT_EQ(temps.DepuisTick(), kFinMs - 1 - 20'000);
  horloge.Millisecondes = kFinMs + 2;
  EXPECT_THROW(temps.DepuisTick(), Echec);
  EXPECT_THROW(temps.DepuisLive(), Echec);
}

TEST(TempsAnalyse, OriginThatMovesAlongChangesNoDifference) {
  faux::HorlogeVirtuelle horloge;
  TempsAnalyse temps(horloge);
  for (qint64 jour = 0; jour < 400; ++jour) {
    horloge.Millisecondes = jour * kJourMs;
    temps.Ramene();
    temps.NoteLive();
    horloge.Millisecondes += 5 * kHeureMs;
    temps.Ramene();
    temps.NoteTick();
    horloge.Millisecondes += 33;
    temps.Ramene();
    ASSERT_EQ(temps.DepuisTick(), 33) << jour;
    ASSERT_EQ(temps.DepuisLive(), 5 * kHeureMs + 33) << jour;
  }
}

TEST(TempsAnalyse, WhatIsLongAgoStaysLongAgo) {
  faux::HorlogeVirtuelle horloge;
  TempsAnalyse temps(horloge);
  temps.NoteLive();
  qint32 depuis = 0;
  for (qint64 heure = 1; heure < qint64{365} * 24; ++heure) {
    horloge.Millisecondes = heure * kHeureMs;
    temps.Ramene();
    ASSERT_GE(temps.DepuisLive(), std::min<qint64>(heure * kHeureMs, 24 * kJourMs)) << heure;
    depuis = temps.DepuisLive();
  }
  EXPECT_GE(depuis, 24 * kJourMs);
}

// With the camera off nobody brings the origin along.
TEST(TempsAnalyse, AnyTimeMayPassUnseen) {
  for (const qint64 pause : {kFinMs - 1, kFinMs, kFinMs + 1, 30 * kJourMs, 2 * kFinMs - 1, 2 * kFinMs, 60 * kJourMs}) {
    faux::HorlogeVirtuelle horloge;
    TempsAnalyse temps(horloge);
    horloge.Millisecondes = kJourMs;
    temps.Ramene();
    temps.NoteTick();
    temps.NoteLive();
    horloge.Millisecondes += pause;
    temps.Ramene();
    EXPECT_NO_THROW(temps.DepuisTick()) << pause;
    EXPECT_GE(temps.DepuisLive(), 0) << pause;
    temps.NoteTick();
    horloge.Millisecondes += 40;
    temps.Ramene();
    EXPECT_EQ(temps.DepuisTick(), 40) << pause;
  }
}

class Annee : public BancEssai {
 protected:
  /// An hour passes in which no frame is looked at, then two come, 30 ms apart; somebody is in the second.
  void UneHeure(bool quelquun = false) {
    Horloge.Millisecondes += kHeureMs;
    Trame(Unie(0));
    Horloge.Millisecondes += 30;
    Trame(quelquun ? AvecPoints(40) : Unie(0));
  }
};

TEST_F(Annee, AYearAloneWithALivePageAtIntervals) {
  Reglages.PhotoActif = Reglages.SonActif = true;
  Reglages.IntervalleFtp = QStringLiteral("21600");  // six hours
  ArmeSurNoir();
  Live.Actif = true;
  Actions.Photos = Actions.Sons = 0;
  qint32 vus = 0;
  for (qint32 heure = 0; heure < 365 * 24; ++heure) {
    const bool quelquun = heure % 100 == 50;
    vus += quelquun ? 2 : 0;  // seen coming and going
    const qint32 compteurs = Affichage.NombreCompteurs;
    UneHeure(quelquun);
    ASSERT_EQ(Affichage.NombreCompteurs, compteurs + 2) << heure;
    ASSERT_EQ(Affichage.Cycle, 30) << heure;
    Trame(Unie(0));
    ASSERT_EQ(Actions.Sons, vus) << heure;
  }
  EXPECT_NEAR(Live.Publications, 365 * 4, 2);
  EXPECT_TRUE(Sante.Details.isEmpty());
}

TEST_F(Annee, AYearWithoutALivePageThenOneIsDueAtOnce) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  for (qint32 heure = 0; heure < 365 * 24; ++heure) UneHeure();
  EXPECT_EQ(Affichage.Cycle, 30);
  Live.Actif = true;
  Trame(Unie(0));
  EXPECT_EQ(Live.Publications, 1);
  Trame(AvecPoints(40));
  EXPECT_EQ(Actions.Photos, 1);
}

TEST_F(Annee, CameraThatWasOffForAMonthOrTwoIsWatchedLikeAnyOther) {
  Reglages.PhotoActif = true;
  Engin.BasculeCamera();
  Engin.BasculeCamera();  // no timer ticks from here on
  for (const qint64 jours : {26, 60, 300}) {
    Horloge.Millisecondes += jours * kJourMs;
    const qint32 compteurs = Affichage.NombreCompteurs;
    ArmeSurNoir();
    EXPECT_GT(Affichage.NombreCompteurs, compteurs);
    Actions.Photos = 0;
    Trame(AvecPoints(40));
    EXPECT_EQ(Actions.Photos, 1) << jours;
    Engin.BasculeCamera();
  }
}

}  // namespace
}  // namespace vaktor
