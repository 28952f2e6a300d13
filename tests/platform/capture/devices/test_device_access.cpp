// SPDX-License-Identifier: GPL-3.0-or-later
// Devices that hang: the driver of a node keeps the thread that opened it, for as long as the test likes.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <condition_variable>
#include <mutex>

#include "platform/capture/devices/device_access.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

// Three cameras, of which some hang. Held by the questions too: a thread that hangs outlives the test's own objects.
class Banc {
 public:
  QList<PeripheriqueVideo> Tous() const { return NommePeripheriques({Candidat("a"), Candidat("b"), Candidat("c")}); }
  static CandidatVideo Candidat(const QString& lettre) {
    return {"/dev/" + lettre, "Camera " + lettre, "pilote|Camera " + lettre, "pilote|Camera " + lettre + "|bus", {}};
  }

  void Cale(const QString& noeud) {
    const std::lock_guard verrou(Verrou_);
    Cales_.append(noeud);
  }
  void Libere() {
    const std::lock_guard verrou(Verrou_);
    Cales_.clear();
    Change_.notify_all();
  }
  void Traverse(const QString& noeud) {
    ++Visites;
    std::unique_lock verrou(Verrou_);
    Change_.wait(verrou, [&] { return !Cales_.contains(noeud); });
    ++Sorties;
  }

  std::atomic<int> Visites = 0;
  std::atomic<int> Sorties = 0;

 private:
  std::mutex Verrou_;
  std::condition_variable Change_;
  QStringList Cales_;
};

class PeripheriqueQuiCale : public testing::Test {
 protected:
  void TearDown() override {
    Banc_->Libere();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Banc_->Sorties == Banc_->Visites; }));
  }
  static QuestionsV4L2 Questions(const std::shared_ptr<Banc>& banc) {
    QuestionsV4L2 questions;
    questions.Noeuds = [] { return QStringList{"/dev/a", "/dev/b", "/dev/c"}; };
    questions.Sonde = [banc](const QString& noeud) {
      banc->Traverse(noeud);
      return std::optional(Banc::Candidat(noeud.right(1)));
    };
    questions.Formats = [banc](const QString& noeud) {
      banc->Traverse(noeud);
      return QList<FormatCamera>{{"MJPG", 640, 480, 30, 1}};
    };
    questions.Reglages = [banc](const QString& noeud) {
      banc->Traverse(noeud);
      return QList<ReglageCamera>(1);
    };
    questions.Regle = [banc](const QString& noeud, quint32, qint32) {
      banc->Traverse(noeud);
      return true;
    };
    return questions;
  }
  QStringList Noeuds() const {
    QStringList noeuds;
    for (const PeripheriqueVideo& p : Acces_->Peripheriques()) noeuds.append(p.Noeud);
    return noeuds;
  }

  std::shared_ptr<Banc> Banc_ = std::make_shared<Banc>();
  // Wide for those who answer: only those who never do are waited for so long.
  std::unique_ptr<AccesV4L2> Acces_ =
      std::make_unique<AccesV4L2>(Questions(Banc_), AccesV4L2::Limites{.Liste = 500ms, .Question = 500ms});
};

TEST_F(PeripheriqueQuiCale, WhereNoneHangsAllAreListedInTheirOrder) {
  EXPECT_EQ(Noeuds(), (QStringList{"/dev/a", "/dev/b", "/dev/c"}));
  EXPECT_TRUE(Acces_->Muets().isEmpty());
  EXPECT_EQ(Acces_->Retrouve("pilote|Camera b|bus")->Noeud, "/dev/b");
  EXPECT_EQ(Acces_->Retrouve("pilote|Camera z|bus"), std::nullopt);
}

TEST_F(PeripheriqueQuiCale, TheOthersAreListedAndTheSilentOneIsNamed) {
  Banc_->Cale("/dev/a");
  EXPECT_EQ(Noeuds(), (QStringList{"/dev/b", "/dev/c"}));
  EXPECT_EQ(Acces_->Muets(), QStringList{"/dev/a"});
}

// Pulled out it is not, and whoever plugs it in again helps it.
TEST_F(PeripheriqueQuiCale, WhereAllAreSilentItIsNotSaidThatNoneIsPluggedIn) {
  EXPECT_EQ(Acces_->PourquoiAucune().Quoi, Motif::kAbsente);
  for (const char* noeud : {"/dev/a", "/dev/b", "/dev/c"}) Banc_->Cale(noeud);
  EXPECT_TRUE(Noeuds().isEmpty());
  EXPECT_EQ(Acces_->PourquoiAucune().Quoi, Motif::kSansImage);
}

TEST_F(PeripheriqueQuiCale, TheWindowsLiveMeanwhile) {
  Banc_->Cale("/dev/b");
  int tics = 0;
  QTimer tic;
  QObject::connect(&tic, &QTimer::timeout, &tic, [&tics] { ++tics; });
  tic.start(10ms);
  EXPECT_TRUE(Acces_->Formats("/dev/b").isEmpty());
  EXPECT_GT(tics, 3) << "of about fifty";
}

TEST_F(PeripheriqueQuiCale, NoSecondThreadIsLostToItAndNobodyWaitsForItTwice) {
  Banc_->Cale("/dev/a");
  Noeuds();
  const int visites = Banc_->Visites;
  // With the limit of the first round these would take a quarter of a minute.
  for (int i = 0; i < 30; ++i) {
    EXPECT_TRUE(Acces_->Formats("/dev/a").isEmpty());
    EXPECT_TRUE(Acces_->Reglages("/dev/a").isEmpty());
    EXPECT_FALSE(Acces_->Regle("/dev/a", 1, 1));
  }
  EXPECT_EQ(Banc_->Visites, visites);
  EXPECT_FALSE(Acces_->Formats("/dev/b").isEmpty()) << "the others are asked as before";
}

TEST_F(PeripheriqueQuiCale, OnceItAnswersItIsThereAgain) {
  Banc_->Cale("/dev/c");
  EXPECT_EQ(Noeuds(), (QStringList{"/dev/a", "/dev/b"}));
  Banc_->Libere();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Acces_->Muets().isEmpty(); }));
  EXPECT_EQ(Noeuds(), (QStringList{"/dev/a", "/dev/b", "/dev/c"}));
  EXPECT_EQ(Acces_->Reglages("/dev/c").size(), 1);
}

// A slider that is moved while the controls are still being read: the second question stands in line.
TEST_F(PeripheriqueQuiCale, AQuestionFromWithinAWaitComesAfterTheFirst) {
  Banc_->Cale("/dev/a");
  bool regle = false;
  QTimer::singleShot(80ms, [&] { regle = Acces_->Regle("/dev/a", 1, 1); });
  QTimer::singleShot(100ms, [&] { Banc_->Libere(); });
  // The outer answer is there before the inner one, but its caller sees it only after the inner wait is over.
  EXPECT_EQ(Acces_->Reglages("/dev/a").size(), 1);
  EXPECT_TRUE(regle);
}

TEST_F(PeripheriqueQuiCale, WhoAsksMayBeGoneBeforeTheAnswer) {
  Banc_->Cale("/dev/b");
  EXPECT_TRUE(Acces_->Reglages("/dev/b").isEmpty());
  Acces_.reset();
  Banc_->Libere();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Banc_->Sorties == Banc_->Visites; }));
}

// For a dialog that is open: what comes and goes below /dev, with the kernel's own events.
TEST(SuiviBranchements, TellsOnceOfACameraThatComesAndOnceOfOneThatGoes) {
  const QTemporaryDir dossier;
  QuestionsV4L2 questions;
  questions.Dossier = dossier.path();
  const AccesV4L2 acces(questions, {});
  int fois = 0;
  std::unique_ptr<QObject> suivi = acces.SuitBranchements([&] { ++fois; });
  QFile autre(dossier.filePath("ttyUSB0"));
  ASSERT_TRUE(autre.open(QIODevice::WriteOnly));
  QTest::qWait(900);
  EXPECT_EQ(fois, 0) << "no camera";
  QFile noeud(dossier.filePath("video3"));
  ASSERT_TRUE(noeud.open(QIODevice::WriteOnly));
  ASSERT_TRUE(noeud.setPermissions(QFile::ReadOwner));  // its rights come after it
  EXPECT_TRUE(QTest::qWaitFor([&] { return fois > 0; }, 5000));
  QTest::qWait(900);
  EXPECT_EQ(fois, 1) << "of all its events together";
  ASSERT_TRUE(noeud.remove());
  EXPECT_TRUE(QTest::qWaitFor([&] { return fois > 1; }, 5000));
  suivi.reset();
  ASSERT_TRUE(noeud.open(QIODevice::WriteOnly));
  QTest::qWait(900);
  EXPECT_EQ(fois, 2) << "nobody listens any more";
}

}  // namespace
}  // namespace vaktor
