// SPDX-License-Identifier: GPL-3.0-or-later
// The signals that end a program, as events.
#include <gtest/gtest.h>

#include <QProcess>
#include <csignal>

#include "platform/base/end_signals.h"
#include "support/event_wait.h"

namespace vaktor::essai {
namespace {

TEST(SignauxFin, EachKindCallsFromTheEventLoop) {
  int appels = 0;
  const SignauxFin signaux([&] { ++appels; });
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    const int avant = appels;
    ASSERT_EQ(std::raise(signal), 0);
    EXPECT_EQ(appels, avant) << "not from the handler";
    EXPECT_TRUE(AttendQue([&] { return appels == avant + 1; }));
  }
}

TEST(SignauxFinDeathTest, ASecondOfItsKindEndsTheProgram) {
  EXPECT_EXIT(
      {
        const SignauxFin signaux([] {});
        std::raise(SIGTERM);
        std::raise(SIGTERM);
      },
      testing::KilledBySignal(SIGTERM), "");
}

TEST(SignauxFinDeathTest, AfterTheObjectASignalHasItsPlainEffect) {
  EXPECT_EXIT(
      {
        {
          const SignauxFin signaux([] {});
        }
        std::raise(SIGINT);
      },
      testing::KilledBySignal(SIGINT), "");
}

TEST(SignauxFin, ALaterObjectTakesOver) {
  {
    const SignauxFin premiers([] {});
  }
  int appels = 0;
  const SignauxFin signaux([&] { ++appels; });
  std::raise(SIGHUP);
  EXPECT_TRUE(AttendQue([&] { return appels == 1; }));
}

TEST(SignauxFin, StartedProgramsGetNoneOfIt) {
  const SignauxFin signaux([] {});
  QProcess enfant;
  enfant.start(QStringLiteral("sleep"), {QStringLiteral("60")});
  ASSERT_TRUE(enfant.waitForStarted());
  enfant.terminate();
  ASSERT_TRUE(enfant.waitForFinished());
  EXPECT_EQ(enfant.exitStatus(), QProcess::CrashExit);
}

}  // namespace
}  // namespace vaktor::essai
