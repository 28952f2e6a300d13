// SPDX-License-Identifier: GPL-3.0-or-later
// Faults that the kernel's own test driver makes on demand. Runs inside the virtual machine.
#include <QProcess>

#include "support/camera_list.h"
#include "vm/guest_driver.h"

namespace vaktor {
namespace {

class VividDefauts : public PiloteReelTest {
 protected:
  void SetUp() override {
    Noeud_ = ListePeripheriques().first().Noeud;
    // Small and slow: an emulated processor shall keep pace.
    Memoire_.RetientFormat(ListePeripheriques().first().NomStable, {"YUYV", 320, 180, 10, 1});
  }
  void TearDown() override { EXPECT_TRUE(Regle(QStringLiteral("percentage_of_dropped_buffers=0"))); }
  bool Regle(const QString& reglage) const {
    return QProcess::execute(QStringLiteral("v4l2-ctl"), {"-d", Noeud_, "-c", reglage}) == 0;
  }
  QString Noeud_;
};

TEST_F(VividDefauts, AnErrorOfTheDriversQueueEndsTheStreamAndTheCameraIsOpenedAgain) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 5));
  ASSERT_TRUE(Regle(QStringLiteral("inject_fatal_streaming_error=1")));
  // No frame comes from this stream any more. Whether that is seen as a lost signal hangs on how soon the next one is
  // up.
  EXPECT_TRUE(AttendImages(*pilote, 30));
  EXPECT_EQ(pilote->CopieTrame().Entiere().size(), QSize(320, 180));
  EXPECT_FALSE(pilote->SignalPerdu());
}

TEST_F(VividDefauts, ABadBufferIsNoEndOfTheStream) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 5));
  ASSERT_TRUE(Regle(QStringLiteral("inject_v4l2_buf_flag_error=1")));
  EXPECT_TRUE(AttendImages(*pilote, 10));
  EXPECT_EQ(pilote->CopieTrame().Entiere().size(), QSize(320, 180));
}

TEST_F(VividDefauts, BuffersThatAreDroppedWithoutAWordAreAStall) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 5));
  ASSERT_TRUE(Regle(QStringLiteral("percentage_of_dropped_buffers=100")));
  EXPECT_TRUE(Attend([&] { return !SaisitProchaine(*pilote) && pilote->SignalPerdu(); }));
  ASSERT_TRUE(Regle(QStringLiteral("percentage_of_dropped_buffers=0")));
  EXPECT_TRUE(Attend([&] { return SaisitProchaine(*pilote) && !pilote->SignalPerdu(); }));
  EXPECT_TRUE(AttendImages(*pilote, 5));
}

TEST_F(VividDefauts, AStartThatFailsOnceIsTriedAgainByTheUser) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Regle(QStringLiteral("inject_vidioc_streamon_error=1")));
  pilote->Connecte();  // another format of the device may answer: the fault is for one start only
  EXPECT_TRUE(Connecte(*pilote));
  EXPECT_TRUE(AttendImages(*pilote, 5));
}

}  // namespace
}  // namespace vaktor
