// SPDX-License-Identifier: GPL-3.0-or-later
// One question at a time to a disk that may never answer: what is told, and what comes to nobody.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QStringList>
#include <QThread>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/folders/patient_question.h"
#include "support/event_wait.h"

namespace vaktor {
namespace {

constexpr std::chrono::milliseconds kTot{30};
constexpr std::chrono::milliseconds kJamais{3'600'000};

/// A disk that answers when the test lets it, or with the test.
class Disque {
 public:
  ~Disque() { Repond(); }
  QuestionPatiente<QString>::Travail Rend(const QString& quoi) {
    return [quoi, suite = Suite_, en = EnCours_, abandons = Abandons_](const std::atomic<bool>& abandon) {
      ++*en;
      suite.wait();
      if (abandon) ++*abandons;
      return quoi;
    };
  }
  void Repond() {
    if (!std::exchange(Repondu_, true)) Ordre_.set_value();
  }
  int Commences() const { return *EnCours_; }
  int Abandons() const { return *Abandons_; }

 private:
  std::promise<void> Ordre_;
  std::shared_future<void> Suite_{Ordre_.get_future()};
  std::shared_ptr<std::atomic<int>> EnCours_ = std::make_shared<std::atomic<int>>(0);
  std::shared_ptr<std::atomic<int>> Abandons_ = std::make_shared<std::atomic<int>>(0);
  bool Repondu_ = false;
};

class PatientQuestion : public testing::Test {
 protected:
  void Ouvre(std::chrono::milliseconds patience) {
    Question.emplace(patience, QStringLiteral("late"), QStringLiteral("no means"));
  }
  auto Note() {
    return [this](const QString& reponse) { Recus.append(reponse); };
  }
  bool Attend(qsizetype nombre) {
    return essai::AttendQue([&] { return Recus.size() >= nombre; });
  }
  /// Of `disque` every piece of work has ended, and what it posted has been run.
  static void Ecoule() {
    QElapsedTimer temps;
    temps.start();
    while (temps.elapsed() < 150) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  }

  Disque Plat;
  QStringList Recus;
  std::optional<QuestionPatiente<QString>> Question;
};

TEST_F(PatientQuestion, LatenessIsToldAndTheAnswerBehindItToo) {
  Ouvre(kTot);
  Question->Pose(Plat.Rend("a"), Note());
  ASSERT_TRUE(Attend(1));
  EXPECT_EQ(Recus, QStringList("late"));
  Plat.Repond();
  ASSERT_TRUE(Attend(2));
  EXPECT_EQ(Recus, QStringList({"late", "a"}));
}

TEST_F(PatientQuestion, TheNextOneForgetsTheOneBeforeThoughThatOneAnswersFirst) {
  Ouvre(kJamais);
  Disque autre;
  Question->Pose(Plat.Rend("a"), Note());
  Question->Pose(autre.Rend("b"), Note());
  ASSERT_TRUE(essai::AttendQue([&] { return Plat.Commences() == 1; }));
  Plat.Repond();
  ASSERT_TRUE(essai::AttendQue([&] { return Plat.Abandons() == 1; })) << "its work learns that nobody waits for it";
  Ecoule();
  EXPECT_EQ(Recus, QStringList());
  autre.Repond();
  ASSERT_TRUE(Attend(1));
  EXPECT_EQ(Recus, QStringList("b"));
}

// The answer may lie in the event loop already when the next question is asked.
TEST_F(PatientQuestion, AnAnswerThatIsOnItsWayComesToNobodyEither) {
  Ouvre(kJamais);
  Question->Pose([](const std::atomic<bool>&) { return QStringLiteral("a"); }, Note());
  QThread::msleep(150);  // posted, and not run
  Disque autre;
  Question->Pose(autre.Rend("b"), Note());
  Ecoule();
  EXPECT_EQ(Recus, QStringList());
  autre.Repond();
  ASSERT_TRUE(Attend(1));
  EXPECT_EQ(Recus, QStringList("b"));
}

TEST_F(PatientQuestion, AForgottenOneIsLateForNobody) {
  Ouvre(kTot);
  Question->Pose(Plat.Rend("a"), Note());
  Question->Oublie();
  Ecoule();
  Plat.Repond();
  Ecoule();
  EXPECT_EQ(Recus, QStringList());
}

TEST_F(PatientQuestion, WorkThatThrowsIsAnAnswer) {
  Ouvre(kJamais);
  Question->Pose([](const std::atomic<bool>&) -> QString { throw std::runtime_error("no memory"); }, Note());
  ASSERT_TRUE(Attend(1));
  EXPECT_EQ(Recus, QStringList("no means"));
}

TEST_F(PatientQuestion, WithThirtyTwoThatHangNoOtherBegins) {
  Ouvre(kJamais);
  for (int i = 0; i < 32; ++i) Question->Pose(Plat.Rend("a"), Note());
  ASSERT_TRUE(essai::AttendQue([&] { return Plat.Commences() == 32; }));
  Disque autre;
  Question->Pose(autre.Rend("b"), Note());
  Ecoule();
  EXPECT_EQ(autre.Commences(), 0);
  Plat.Repond();
  Ecoule();
  autre.Repond();
  Question->Pose(autre.Rend("c"), Note());
  ASSERT_TRUE(Attend(1));
  EXPECT_EQ(Recus, QStringList("c")) << "those that have come back hold no place";
}

TEST_F(PatientQuestion, ItsEndWaitsForAMomentOnlyAndNothingComesBehindIt) {
  Ouvre(kJamais);
  Question->Pose(Plat.Rend("a"), Note());
  ASSERT_TRUE(essai::AttendQue([&] { return Plat.Commences() == 1; }));
  QElapsedTimer temps;
  temps.start();
  Question.reset();
  EXPECT_GE(temps.elapsed(), 450) << "a disk that answers has time to close its file";
  Plat.Repond();
  Ecoule();
  EXPECT_EQ(Recus, QStringList());
}

}  // namespace
}  // namespace vaktor
