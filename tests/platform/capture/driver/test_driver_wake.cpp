// SPDX-License-Identifier: GPL-3.0-or-later
// The wake that the driver promises: out of the event loop, on the thread of the program, once, and never too late.
#include <QCoreApplication>
#include <QThread>

#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

class Reveil : public PiloteSurSource {
 protected:
  void SetUp() override { ASSERT_TRUE(Connecte(QStringLiteral("test"))); }

  static void Laisse(int millisecondes) {
    QEventLoop boucle;
    QTimer::singleShot(millisecondes, &boucle, &QEventLoop::quit);
    boucle.exec();
  }
  bool AttendReveils(int nombre) {
    QElapsedTimer depuis;
    depuis.start();
    while (Reveils_ < nombre && depuis.elapsed() < 10'000) Laisse(10);
    return Reveils_ >= nombre;
  }
  int Reveils_ = 0;
};

TEST_F(Reveil, ComesOutOfTheEventLoopOnTheProgramsThreadWhenAFrameIsThere) {
  while (Pilote_->SaisitImage()) {
  }
  bool prete = false;
  QThread* fil = nullptr;
  Pilote_->AttendImage([&] {
    ++Reveils_;
    prete = Pilote_->ImagePrete();
    fil = QThread::currentThread();
  });
  QThread::msleep(200);  // frames come meanwhile, and nobody lets events run
  EXPECT_EQ(Reveils_, 0);
  EXPECT_TRUE(AttendReveils(1));
  EXPECT_TRUE(prete);
  EXPECT_EQ(fil, QThread::currentThread());
  Laisse(200);
  EXPECT_EQ(Reveils_, 1) << "once for each time that it is asked";
}

TEST_F(Reveil, ComesSoonForAFrameThatIsThereAlready) {
  QThread::msleep(100);
  ASSERT_TRUE(Pilote_->ImagePrete());
  Pilote_->AttendImage([this] { ++Reveils_; });
  EXPECT_EQ(Reveils_, 0) << "not from inside the call";
  EXPECT_TRUE(AttendReveils(1));
}

TEST_F(Reveil, MayBeAskedForAgainFromInsideIt) {
  std::function<void()> encore = [&] {
    ++Reveils_;
    EXPECT_TRUE(Pilote_->SaisitImage());
    Pilote_->AttendImage(encore);
  };
  Pilote_->AttendImage(encore);
  EXPECT_TRUE(AttendReveils(20));
}

TEST_F(Reveil, LaterQuestionTakesThePlaceOfTheEarlierOne) {
  int autres = 0;
  Pilote_->AttendImage([&] { ++autres; });
  Pilote_->AttendImage([this] { ++Reveils_; });
  EXPECT_TRUE(AttendReveils(1));
  EXPECT_EQ(autres, 0);
}

TEST_F(Reveil, IsTakenBackByAnEmptyOneAndByAFrameThatIsTaken) {
  Pilote_->AttendImage([this] { ++Reveils_; });
  Pilote_->AttendImage({});
  Laisse(200);
  EXPECT_EQ(Reveils_, 0);
  Pilote_->AttendImage([this] { ++Reveils_; });
  QThread::msleep(100);  // rung, not heard yet
  EXPECT_TRUE(Pilote_->SaisitImage());
  Laisse(200);
  EXPECT_EQ(Reveils_, 0);
}

TEST_F(Reveil, NeverComesAfterTheCameraWasLetGo) {
  Pilote_->AttendImage([this] { ++Reveils_; });
  QThread::msleep(100);  // rung, not heard yet
  Pilote_->Deconnecte();
  Pilote_->AttendImage([this] { ++Reveils_; });
  Laisse(200);
  ASSERT_TRUE(Pilote_->Connecte());
  Laisse(200);
  EXPECT_EQ(Reveils_, 0);
}

TEST_F(Reveil, NeverComesAfterTheDriverIsGone) {
  Pilote_->AttendImage([this] { ++Reveils_; });
  QThread::msleep(100);
  Pilote_.reset();
  Laisse(200);
  EXPECT_EQ(Reveils_, 0);
}

// Words of companions are events of the loop like this timer's: they are no longer taken at the camera's rate.
TEST_F(Reveil, SlowCameraLeavesTheEventLoopFree) {
  ASSERT_TRUE(FabriqueFilm(Fichier("lent.avi"), QStringLiteral("width=160,height=120,framerate=2/1"), 20,
                           QStringLiteral("jpegenc ! avimux")));
  ASSERT_TRUE(Connecte(Fichier("lent.avi")));
  int evenements = 0;
  int images = 0;
  QTimer tic;
  QTimer autre;
  QObject::connect(&autre, &QTimer::timeout, &autre, [&] { ++evenements; });
  QObject::connect(&tic, &QTimer::timeout, &tic, [&] { images += Pilote_->SaisitImage() ? 1 : 0; });
  tic.start(30);
  autre.start(5);
  Laisse(3000);
  EXPECT_GE(images, 3);
  EXPECT_LE(images, 9);
  EXPECT_GT(evenements, 100) << "of 600; a grab that waits leaves thirty";
}

}  // namespace
}  // namespace vaktor
