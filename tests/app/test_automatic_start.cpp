// SPDX-License-Identifier: GPL-3.0-or-later
// The start arguments that switch something on, a second after the start.
#include <gtest/gtest.h>

#include <QStringList>
#include <new>

#include "app/automatic_start.h"
#include "base/failure.h"
#include "fakes/virtual_clock.h"
#include "fakes/virtual_timers.h"

namespace vaktor {
namespace {

struct DepartAuto : testing::Test {
  bool Attend() const { return Temps.Trouve(QStringLiteral("TimerAutoStar"))->EstActive(); }

  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  bool EnPause = false;
  bool Echoue = false;
  bool Presente = true;
  bool Manque = false;
  bool Live = false;
  bool Armee = false;
  int Attentes = 0;
  QStringList Faits;
  DemarrageAuto Depart{PortsDemarrageAuto{Temps, [this] { return EnPause; },
                                          [this] {
                                            ++Attentes;
                                            if (Manque) throw std::bad_alloc();
                                            return Presente;
                                          },
                                          [this] { return Live; }, [this] { return Armee; },
                                          [this] {
                                            if (Echoue) throw Echec(kAppelIncorrect, QStringLiteral("no"));
                                            Faits << QStringLiteral("live");
                                          },
                                          [this] { Faits << QStringLiteral("alarm"); }}};
};

TEST_F(DepartAuto, WithoutArgumentsNothingIsWaitedFor) {
  Depart.Lance({});
  EXPECT_FALSE(Attend());
  Depart.Relance();
  EXPECT_FALSE(Attend()) << "a companion that is ready starts nothing either";
}

TEST_F(DepartAuto, IsCarriedOutOnceAfterOneSecondLivePageFirst) {
  Depart.Lance({.Alarme = true, .Live = true});
  Temps.Avance(999);
  EXPECT_EQ(Faits, QStringList());
  Temps.Avance(1);
  EXPECT_EQ(Faits, QStringList({"live", "alarm"}));
  Temps.Avance(5000);
  EXPECT_EQ(Faits.size(), 2);
  EXPECT_FALSE(Attend());
}

TEST_F(DepartAuto, EachArgumentSwitchesItsOwnOnly) {
  Depart.Lance({.Live = true});
  Temps.Avance(1000);
  EXPECT_EQ(Faits, QStringList{"live"});
  Depart.Lance({.Alarme = true});
  Temps.Avance(1000);
  EXPECT_EQ(Faits, QStringList({"live", "alarm"}));
}

TEST_F(DepartAuto, ACompanionThatIsReadyLateThrowsTheSwitchesAgain) {
  Depart.Lance({.Alarme = true});
  Temps.Avance(1000);
  Depart.Relance();
  Temps.Avance(1000);
  EXPECT_EQ(Faits, QStringList({"alarm", "alarm"}));
}

TEST_F(DepartAuto, WaitsWhileTheCameraIsBeingConnectedOrSetUp) {
  EnPause = true;
  Depart.Lance({.Alarme = true});
  Temps.Avance(60'000);
  EXPECT_EQ(Faits, QStringList());
  EnPause = false;
  Temps.Avance(1000);
  EXPECT_EQ(Faits, QStringList{"alarm"});
}

TEST_F(DepartAuto, WithoutACameraItIsTriedEachSecondAndCarriedOutOnceWhenTheCameraComes) {
  Presente = false;
  Depart.Lance({.Alarme = true, .Live = true});
  EXPECT_FALSE(Depart.AttendPourArmer());
  Temps.Avance(60'000);
  EXPECT_EQ(Attentes, 60);
  EXPECT_EQ(Faits, QStringList());
  EXPECT_TRUE(Depart.AttendPourArmer());
  Presente = true;
  Temps.Avance(5000);
  EXPECT_EQ(Faits, QStringList({"live", "alarm"}));
  EXPECT_FALSE(Depart.AttendPourArmer());
  EXPECT_FALSE(Attend());
}

TEST_F(DepartAuto, OnlyTheAlarmIsWaitedForToBeArmed) {
  Presente = false;
  Depart.Lance({.Live = true});
  Temps.Avance(1000);
  EXPECT_FALSE(Depart.AttendPourArmer());
}

// Its switches would go off again.
TEST_F(DepartAuto, WhatSomebodyHasSwitchedOnWhileTheCameraWasAwaitedStaysOn) {
  Presente = false;
  Depart.Lance({.Alarme = true, .Live = true});
  Temps.Avance(3000);
  Presente = Armee = true;
  Temps.Avance(1000);
  EXPECT_EQ(Faits, QStringList{"live"});
  Live = true;
  Depart.Relance();
  Temps.Avance(1000);
  EXPECT_EQ(Faits, QStringList({"live", "live", "alarm"})) << "nothing was awaited: the switches are thrown";
}

TEST_F(DepartAuto, OneShotStaysOneShotWhenItFails) {
  Echoue = true;
  Depart.Lance({.Alarme = true, .Live = true});
  EXPECT_THROW(Temps.Avance(1000), Echec);
  EXPECT_FALSE(Attend());
  Temps.Avance(5000);
  EXPECT_EQ(Faits, QStringList{"alarm"}) << "a page that fails leaves the alarm on";
}

TEST_F(DepartAuto, AsksAgainForACameraThatCouldNotBeAskedFor) {
  Manque = true;
  Depart.Lance({.Alarme = true});
  EXPECT_THROW(Temps.Avance(1000), std::bad_alloc);
  EXPECT_TRUE(Depart.AttendPourArmer());
  Manque = false;
  Temps.Avance(1000);
  EXPECT_EQ(Faits, QStringList{"alarm"});
  EXPECT_FALSE(Depart.AttendPourArmer());
}

}  // namespace
}  // namespace vaktor
