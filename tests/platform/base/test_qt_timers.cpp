// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <algorithm>
#include <functional>

#include "platform/base/qt_timers.h"

namespace vaktor {
namespace {

constexpr qint32 kUneHeure = 3'600'000;

/// Runs the events until the condition holds; the limit only ends a test that has failed already.
bool AttendQue(const std::function<bool()>& condition) {
  const QDeadlineTimer fin(10'000);
  while (!condition() && !fin.hasExpired()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  return condition();
}

class QtTimers : public testing::Test {
 protected:
  std::unique_ptr<Minuterie> Cree(qint32 millisecondes, std::function<void()> tic) {
    return Fabrique.CreeMinuterie(QStringLiteral("Timer1"), millisecondes, std::move(tic));
  }
  /// Lets a timer of 1 ms tick ten times, so that others that are due have had their turn.
  void LaissePasser() {
    int tics = 0;
    const auto temoin = Cree(1, [&tics] { ++tics; });
    temoin->Active();
    ASSERT_TRUE(AttendQue([&tics] { return tics >= 10; }));
  }
  FabriqueMinuteriesQt Fabrique;
};

TEST_F(QtTimers, ANewTimerIsOffAndDoesNotTick) {
  int tics = 0;
  const auto minuterie = Cree(1, [&tics] { ++tics; });
  EXPECT_FALSE(minuterie->EstActive());
  EXPECT_EQ(minuterie->Intervalle(), 1);
  LaissePasser();
  EXPECT_EQ(tics, 0);
}

TEST_F(QtTimers, OneThatSleepsIsActiveAndTicksAgainWhenItIsWoken) {
  int tics = 0;
  const auto minuterie = Cree(1, [&tics] { ++tics; });
  minuterie->Reveille();
  EXPECT_FALSE(minuterie->EstActive()) << "what is off cannot wake";
  minuterie->Active();
  EXPECT_TRUE(AttendQue([&tics] { return tics >= 2; }));
  for (const bool parActive : {false, true}) {
    minuterie->Endors();
    EXPECT_TRUE(minuterie->EstActive());
    const int endormi = tics;
    LaissePasser();
    EXPECT_EQ(tics, endormi);
    parActive ? minuterie->Active() : minuterie->Reveille();
    EXPECT_TRUE(AttendQue([&] { return tics >= endormi + 2; }));
  }
  minuterie->Endors();
  minuterie->Desactive();
  minuterie->Reveille();
  EXPECT_FALSE(minuterie->EstActive());
  const int arrete = tics;
  LaissePasser();
  EXPECT_EQ(tics, arrete);
}

// As the automatic tolerance does.
TEST_F(QtTimers, OneMayFallAsleepInItsOwnTick) {
  int tics = 0;
  std::unique_ptr<Minuterie> minuterie;
  minuterie = Cree(1, [&] {
    ++tics;
    minuterie->Endors();
  });
  minuterie->Active();
  EXPECT_TRUE(AttendQue([&tics] { return tics == 1; }));
  LaissePasser();
  EXPECT_EQ(tics, 1);
  minuterie->Reveille();
  EXPECT_TRUE(AttendQue([&tics] { return tics == 2; }));
}

TEST_F(QtTimers, ARunningTimerRepeatsUntilItIsStopped) {
  int tics = 0;
  const auto minuterie = Cree(1, [&tics] { ++tics; });
  minuterie->Active();
  EXPECT_TRUE(minuterie->EstActive());
  EXPECT_TRUE(AttendQue([&tics] { return tics >= 3; }));
  minuterie->Desactive();
  EXPECT_FALSE(minuterie->EstActive());
  const int arrete = tics;
  LaissePasser();
  EXPECT_EQ(tics, arrete);
}

/// Holds the thread as a photo on a slow disk does.
void Retient(qint64 millisecondes) {
  QElapsedTimer depuis;
  depuis.start();
  while (depuis.elapsed() < millisecondes) {
  }
}

TEST_F(QtTimers, ATimerWhoseThreadWasBusyMakesUpForNothing) {
  for (const qint32 intervalle : {1, 50}) {
    int tics = 0;
    const auto minuterie = Cree(intervalle, [&tics] { ++tics; });
    minuterie->Active();
    Retient(500);
    ASSERT_TRUE(AttendQue([&tics] { return tics > 0; }));
    // A busy machine may let it tick a few times more before the count is looked at.
    EXPECT_LT(tics, 5) << intervalle;
  }
}

TEST_F(QtTimers, SwitchingOnARunningTimerChangesNothing) {
  // If it began its interval anew each time, it would never tick here.
  int tics = 0;
  const auto minuterie = Cree(100, [&tics] { ++tics; });
  const auto relance = Cree(5, [&minuterie] { minuterie->Active(); });
  minuterie->Active();
  relance->Active();
  EXPECT_TRUE(AttendQue([&tics] { return tics >= 1; }));
}

TEST_F(QtTimers, ANewIntervalOfARunningTimerCountsFromNow) {
  int tics = 0;
  const auto minuterie = Cree(kUneHeure, [&tics] { ++tics; });
  minuterie->Active();
  minuterie->ChangeIntervalle(1);
  EXPECT_EQ(minuterie->Intervalle(), 1);
  EXPECT_TRUE(AttendQue([&tics] { return tics >= 2; })) << "the hour is not waited for";
  minuterie->ChangeIntervalle(kUneHeure);
  const int avant = tics;
  LaissePasser();
  EXPECT_EQ(tics, avant);
  EXPECT_TRUE(minuterie->EstActive());
}

TEST_F(QtTimers, ANewIntervalDoesNotStartATimerThatIsOff) {
  int tics = 0;
  const auto minuterie = Cree(kUneHeure, [&tics] { ++tics; });
  minuterie->ChangeIntervalle(1);
  EXPECT_FALSE(minuterie->EstActive());
  LaissePasser();
  EXPECT_EQ(tics, 0);
}

TEST_F(QtTimers, ATimerMayStopAndChangeItselfInItsTick) {
  int tics = 0;
  std::unique_ptr<Minuterie> minuterie;
  minuterie = Cree(1, [&] {
    if (++tics == 2) minuterie->Desactive();
    minuterie->ChangeIntervalle(2);
  });
  minuterie->Active();
  EXPECT_TRUE(AttendQue([&] { return !minuterie->EstActive(); }));
  LaissePasser();
  EXPECT_EQ(tics, 2);
  EXPECT_EQ(minuterie->Intervalle(), 2);
}

TEST_F(QtTimers, ATickThatPumpsDoesNotComeAgainInside) {
  int profondeur = 0;
  int profondeurMax = 0;
  int tics = 0;
  std::unique_ptr<Minuterie> minuterie;
  minuterie = Cree(1, [&] {
    profondeurMax = std::max(profondeurMax, ++profondeur);
    if (tics++ == 0) {
      minuterie->Desactive();  // stopped and started again it is a new timer for Qt
      minuterie->Active();
      LaissePasser();
    }
    --profondeur;
  });
  minuterie->Active();
  EXPECT_TRUE(AttendQue([&] { return tics >= 3; })) << "and it goes on afterwards";
  EXPECT_EQ(profondeurMax, 1);
}

}  // namespace
}  // namespace vaktor
