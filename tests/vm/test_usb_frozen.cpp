// SPDX-License-Identifier: GPL-3.0-or-later
// A USB camera that answers nothing at all, as one does whose firmware hangs: the kernel keeps whoever talks to it, and
// no signal and no time limit gets that thread back. Runs inside the virtual machine.
#include <QTimer>

#include "platform/capture/devices/device_access.h"
#include "support/camera_list.h"
#include "vm/usb_fixture.h"

namespace vaktor {
namespace {

constexpr quint32 kLuminosite = 0x00980900;

class UsbFigee : public UsbPilote {
 protected:
  /// Freshly plugged in: what the kernel once read of a camera's controls it does not ask for again.
  void SetUp() override {
    ASSERT_TRUE(Ordonne("unplug"));
    ASSERT_TRUE(Attend([] { return ListePeripheriques().isEmpty(); }));
    ASSERT_TRUE(Ordonne("plug"));
    ASSERT_TRUE(Attend([] { return ListePeripheriques().size() == 1; }));
    QObject::connect(&Tic_, &QTimer::timeout, &Tic_, [this] { ++Tics_; });
    Tic_.start(100);
  }
  static QString Noeud() { return ListePeripheriques().first().Noeud; }

  QTimer Tic_;
  int Tics_ = 0;
};

TEST_F(UsbFigee, WhileItAnswersItsBrightnessIsReadAndSet) {
  AccesV4L2 acces;
  const QString noeud = Noeud();
  const QList<ReglageCamera> reglages = acces.Reglages(noeud);
  ASSERT_EQ(reglages.size(), 1);
  EXPECT_EQ(reglages.first().Numero, kLuminosite);
  EXPECT_EQ(reglages.first().Maximum, 255);
  EXPECT_EQ(reglages.first().Defaut, 128);
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 5));
  const double avant = Clarte(pilote->CopieTrame().Entiere());
  EXPECT_TRUE(acces.Regle(noeud, kLuminosite, 178));
  ASSERT_TRUE(AttendImages(*pilote, 5));
  EXPECT_GT(Clarte(pilote->CopieTrame().Entiere()), avant + 20.0);
  EXPECT_TRUE(acces.Regle(noeud, kLuminosite, 128));
}

TEST_F(UsbFigee, ReadingItsControlsHoldsNoWindowAndItIsThereAgainAfterwards) {
  AccesV4L2 acces;
  const QString noeud = Noeud();
  ASSERT_TRUE(Ordonne("freeze"));
  EXPECT_TRUE(acces.Reglages(noeud).isEmpty());
  EXPECT_GT(Tics_, 10) << "of about fifty";
  EXPECT_EQ(acces.Muets(), QStringList{noeud});
  EXPECT_TRUE(acces.Peripheriques().isEmpty()) << "as if it were not there";
  ASSERT_TRUE(Ordonne("thaw"));
  EXPECT_TRUE(Attend([&] { return acces.Muets().isEmpty(); }));
  EXPECT_EQ(acces.Peripheriques().size(), 1);
  EXPECT_EQ(acces.Reglages(noeud).size(), 1);
}

TEST_F(UsbFigee, ItIsNotConnectedAndIsOnceItAnswers) {
  ASSERT_TRUE(Ordonne("freeze"));
  const auto pilote = Pilote();
  EXPECT_FALSE(pilote->Connecte());
  EXPECT_GT(Tics_, 10);
  ASSERT_TRUE(Ordonne("thaw"));
  EXPECT_TRUE(Connecte(*pilote));
  EXPECT_TRUE(AttendImages(*pilote, 5));
}

TEST_F(UsbFigee, AtWorkItsSignalIsLostAndItComesBackByItself) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 10));
  ASSERT_TRUE(Ordonne("freeze"));
  EXPECT_TRUE(Attend([&] { return !SaisitProchaine(*pilote) && pilote->SignalPerdu(); }));
  EXPECT_FALSE(Attend([&] { return SaisitProchaine(*pilote); }, 3)) << "while the driver tries to close it";
  EXPECT_EQ(pilote->CopieTrame().Entiere().size(), QSize(640, 480));
  ASSERT_TRUE(Ordonne("thaw"));
  EXPECT_TRUE(Attend([&] { return SaisitProchaine(*pilote) && !pilote->SignalPerdu(); }));
  EXPECT_TRUE(AttendImages(*pilote, 10));
}

TEST_F(UsbFigee, AtWorkItIsLetGoWithoutAWaitForIt) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 10));
  ASSERT_TRUE(Ordonne("freeze"));
  QElapsedTimer depuis;
  depuis.start();
  pilote->Deconnecte();
  Note("a camera that hangs is let go, seconds:", static_cast<double>(depuis.elapsed()) / 1000.0);
  EXPECT_LT(depuis.elapsed(), 5000) << "not for as long as it hangs, which is for ever";
  ASSERT_TRUE(Ordonne("thaw"));
  EXPECT_TRUE(Connecte(*pilote));
  EXPECT_TRUE(AttendImages(*pilote, 5));
}

}  // namespace
}  // namespace vaktor
