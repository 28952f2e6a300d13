// SPDX-License-Identifier: GPL-3.0-or-later
// The room of a disk, asked without waiting for it.
#include <QElapsedTimer>
#include <QThread>
#include <atomic>
#include <future>
#include <memory>

#include "platform/disk/space_query.h"
#include "support/event_wait.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

class SpaceQuery : public SurDisqueVolatil {
 protected:
  void Demande(const QString& dossier) {
    Sonde.DemandeEspace(dossier, [this, dossier](std::optional<qint64> libres) { Recus.append({dossier, libres}); });
  }
  bool AttendRecu(qsizetype nombre) {
    return essai::AttendQue([&] { return Recus.size() >= nombre; });
  }

  SondeEspaceSysteme Sonde;
  QList<std::pair<QString, std::optional<qint64>>> Recus;
};

TEST_F(SpaceQuery, TheAnswerComesLaterFromTheEventLoop) {
  Demande(Chemin());
  EXPECT_TRUE(Recus.isEmpty());
  ASSERT_TRUE(AttendRecu(1));
  EXPECT_EQ(Recus[0].second, 3'686'400'000) << "what may be written, not what is free";
  Demande(Chemin());
  ASSERT_TRUE(AttendRecu(2));
}

TEST_F(SpaceQuery, OfAFolderThatIsGoneItCannotBeTold) {
  Demande(Chemin("/gone"));
  ASSERT_TRUE(AttendRecu(1));
  EXPECT_EQ(Recus[0].second, std::nullopt);
}

TEST_F(SpaceQuery, ASilentDiskHoldsNobodyGathersNothingAndAnswersOnceInTheEnd) {
  ASSERT_TRUE(Disque->SeTait());
  QElapsedTimer temps;
  temps.start();
  for (int i = 0; i < 100; ++i) {
    if (i == 50) Sonde.Oublie();
    Demande(Chemin());
  }
  EXPECT_LT(temps.elapsed(), 2000);
  ASSERT_TRUE(Disque->Repond());
  ASSERT_TRUE(AttendRecu(1));
  QCoreApplication::processEvents();
  EXPECT_EQ(Recus.size(), 1);
}

TEST_F(SpaceQuery, AThreadThatEndsWithoutAnAnswerIsNotWaitedForForEver) {
  // Shared with the threads: one may still be under way when the answer of the one before it has ended the test.
  const auto demandes = std::make_shared<std::atomic<int>>(0);
  SondeEspaceSysteme sonde([demandes](const QString&) -> std::optional<qint64> {
    if (++*demandes == 1) throw 0;  // as want of memory for bringing the answer would do
    return 7;
  });
  std::optional<qint64> recu;
  ASSERT_TRUE(essai::AttendQue([&] {
    sonde.DemandeEspace(Chemin(), [&recu](std::optional<qint64> libres) { recu = libres; });
    return recu.has_value();
  }));
  EXPECT_EQ(recu, 7);
}

TEST_F(SpaceQuery, ADiskThatHasNotAnsweredIsNotAskedAgain) {
  const auto demandes = std::make_shared<std::atomic<int>>(0);
  std::promise<void> ordre;
  SondeEspaceSysteme sonde([demandes, repond = ordre.get_future().share()](const QString&) -> std::optional<qint64> {
    ++*demandes;
    repond.wait();
    return 7;
  });
  std::optional<qint64> recu;
  for (int i = 0; i < 5; ++i) sonde.DemandeEspace(Chemin(), [&recu](std::optional<qint64> libres) { recu = libres; });
  ASSERT_TRUE(essai::AttendQue([&] { return *demandes > 0; }));
  QThread::msleep(200);  // time for more of them to begin
  EXPECT_EQ(*demandes, 1);
  ordre.set_value();
  ASSERT_TRUE(essai::AttendQue([&] { return recu.has_value(); }));
  EXPECT_EQ(recu, 7);
}

TEST_F(SpaceQuery, AnotherDiskIsAskedWhileOneIsSilent) {
  ASSERT_TRUE(Disque->SeTait());
  Demande(Chemin());
  Demande(Ailleurs());
  ASSERT_TRUE(AttendRecu(1));
  EXPECT_EQ(Recus[0].first, Ailleurs());
  ASSERT_TRUE(Disque->Repond());
}

// The disk is asked again by the second of them: the first had been answered, and waits for nothing more.
TEST_F(SpaceQuery, AnAnswerComesOnceAndTheNextQuestionHasItsOwn) {
  SondeEspaceSysteme sonde([](const QString&) -> std::optional<qint64> { return 7; });
  int premiers = 0;
  int seconds = 0;
  sonde.DemandeEspace(Chemin(), [&](std::optional<qint64>) { ++premiers; });
  ASSERT_TRUE(essai::AttendQue([&] { return premiers == 1; }));
  sonde.DemandeEspace(Chemin(), [&](std::optional<qint64>) { ++seconds; });
  EXPECT_TRUE(essai::AttendQue([&] { return seconds + premiers == 2; }));
  EXPECT_EQ(premiers, 1);
  EXPECT_EQ(seconds, 1);
}

TEST_F(SpaceQuery, NothingComesOfAForgottenQuestion) {
  const auto finies = std::make_shared<std::atomic<int>>(0);
  SondeEspaceSysteme sonde([finies](const QString&) -> std::optional<qint64> {
    ++*finies;
    return 7;
  });
  bool recu = false;
  sonde.DemandeEspace(Chemin(), [&recu](std::optional<qint64>) { recu = true; });
  sonde.Oublie();
  ASSERT_TRUE(essai::AttendQue([&] { return *finies == 1; }));
  QThread::msleep(100);  // its answer lies in the event loop
  QCoreApplication::processEvents();
  EXPECT_FALSE(recu);
}

TEST_F(SpaceQuery, AForgottenQuestionAndOneWhoseOwnerHasGoneFindNobody) {
  Demande(Chemin());
  Sonde.Oublie();
  {
    SondeEspaceSysteme courte;
    courte.DemandeEspace(Chemin(), [this](std::optional<qint64>) { Recus.append({QStringLiteral("gone"), {}}); });
  }
  Demande(Ailleurs());
  ASSERT_TRUE(AttendRecu(1));
  EXPECT_EQ(Recus[0].first, Ailleurs());
}

}  // namespace
}  // namespace vaktor
