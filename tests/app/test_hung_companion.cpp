// SPDX-License-Identifier: GPL-3.0-or-later
// A companion that lives and does nothing: the real one, stopped.
#include "app/whole_program.h"

namespace vaktor::essai {
namespace {

TEST_F(ProgrammeEntier, ACompanionThatHangsIsEndedAndStartedAnew) {
  ASSERT_NO_FATAL_FAILURE(LanceEtAttendTous());
  const QString& son = kNoms.at(2);
  const qint64 avant = Compagnons(son).value(0);
  ASSERT_EQ(::kill(static_cast<pid_t>(avant), SIGSTOP), 0);
  EXPECT_TRUE(Attend([&] { return Compte(son, "registered again") == 1; }));
  EXPECT_EQ(Compagnons(son).size(), 1);
  EXPECT_NE(Compagnons(son).value(0), avant);
  Processus.terminate();
  ExigeFin();
}

}  // namespace
}  // namespace vaktor::essai
