// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a folder takes photos again, asked without waiting for its disk.
#include <QCoreApplication>
#include <QElapsedTimer>

#include "platform/disk/write_trial.h"
#include "support/event_wait.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

class WriteTrial : public SurDisqueVolatil {
 protected:
  void Essaie(const QString& dossier) {
    Essai.Essaie(dossier, [this, dossier](bool reussi) { Recus.append({dossier, reussi}); });
  }
  bool AttendRecu(qsizetype nombre) {
    return essai::AttendQue([&] { return Recus.size() >= nombre; });
  }

  EssaiEcritureSysteme Essai;
  QList<std::pair<QString, bool>> Recus;
};

TEST_F(WriteTrial, TheAnswerComesLaterFromTheEventLoopAndLeavesNothingBehind) {
  ASSERT_TRUE(QDir().mkdir(Chemin("/intrus")));
  Essaie(Chemin("\\intrus"));
  EXPECT_TRUE(Recus.isEmpty());
  ASSERT_TRUE(AttendRecu(1));
  EXPECT_TRUE(Recus[0].second);
  EXPECT_TRUE(QDir(Chemin("/intrus")).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
  Essaie(Chemin("\\intrus"));
  ASSERT_TRUE(AttendRecu(2));
}

TEST_F(WriteTrial, AFolderThatIsGoneTakesNoPhotos) {
  Essaie(Chemin("/gone"));
  ASSERT_TRUE(AttendRecu(1));
  EXPECT_FALSE(Recus[0].second);
}

TEST_F(WriteTrial, ASilentDiskHoldsNobodyGathersNothingAndAnswersOnceInTheEnd) {
  ASSERT_TRUE(Disque->SeTait());
  QElapsedTimer temps;
  temps.start();
  for (int i = 0; i < 100; ++i) Essaie(Chemin());
  EXPECT_LT(temps.elapsed(), 2000);
  Essaie(Ailleurs());
  ASSERT_TRUE(AttendRecu(1));
  EXPECT_EQ(Recus[0].first, Ailleurs()) << "another disk is asked meanwhile";
  ASSERT_TRUE(Disque->Repond());
  ASSERT_TRUE(AttendRecu(2));
  QCoreApplication::processEvents();
  EXPECT_EQ(Recus.size(), 2);
}

TEST_F(WriteTrial, AForgottenTrialAndOneWhoseOwnerHasGoneFindNobody) {
  Essaie(Chemin());
  Essai.Oublie();
  {
    EssaiEcritureSysteme court;
    court.Essaie(Chemin(), [this](bool) { Recus.append({QStringLiteral("gone"), false}); });
  }
  Essaie(Ailleurs());
  ASSERT_TRUE(AttendRecu(1));
  EXPECT_EQ(Recus[0].first, Ailleurs());
}

}  // namespace
}  // namespace vaktor
