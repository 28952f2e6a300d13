// SPDX-License-Identifier: GPL-3.0-or-later
// The capture driver on a USB camera that is busy, unplugged, plugged in again and stalled. Runs inside the virtual
// machine.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QTimer>

#include "support/camera_list.h"
#include "vm/usb_fixture.h"

namespace vaktor {
namespace {

TEST_F(UsbPilote, TakesTheUsualFormatFirst) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 10));
  EXPECT_EQ(pilote->FormatCourant(), kYuyv);
  EXPECT_EQ(pilote->CopieTrame().Entiere().size(), QSize(640, 480));
  EXPECT_EQ(pilote->NoeudPeripherique(), "/dev/video0");
  EXPECT_FALSE(pilote->SignalPerdu());
}

TEST_F(UsbPilote, BothCodingsShowTheSamePicture) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  QList<QImage> images;
  for (const FormatCamera& format : {kYuyv, kMjpg}) {
    ASSERT_TRUE(pilote->AppliqueFormat(format)) << qPrintable(format.Codage);
    ASSERT_TRUE(AttendImages(*pilote, 5));
    EXPECT_EQ(pilote->FormatCourant(), format);
    images.append(pilote->CopieTrame().Entiere());
  }
  ASSERT_EQ(images[0].size(), images[1].size());
  // The square and the ground beside it. The camera writes the same numbers into both, which JPEG reads as 0 to 255 and
  // video as 16 to 235: so they differ by up to a tenth.
  for (const QPoint& ici : {QPoint(60, 240), QPoint(600, 40), QPoint(600, 440)})
    EXPECT_NEAR(qGray(images[0].pixel(ici)), qGray(images[1].pixel(ici)), 16) << ici.x() << ',' << ici.y();
  EXPECT_GT(qGray(images[0].pixel(60, 240)), qGray(images[0].pixel(600, 240)) + 50);
}

TEST_F(UsbPilote, MovementIsSeenAndStillnessIsStill) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 10));
  const QImage avant = pilote->CopieTrame().Entiere();
  ASSERT_TRUE(AttendImages(*pilote, 5));
  EXPECT_EQ(pilote->CopieTrame().Entiere(), avant);
  ASSERT_TRUE(Ordonne("move"));
  EXPECT_TRUE(Attend([&] { return SaisitProchaine(*pilote) && pilote->CopieTrame().Entiere() != avant; }));
}

TEST_F(UsbPilote, ABusyCameraIsRefusedAndItsOwnerIsNotDisturbed) {
  const auto premier = Pilote();
  ASSERT_TRUE(Connecte(*premier));
  const auto second = Pilote(QStringLiteral("/dev/video0"));
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_FALSE(second->Connecte());
  Note("refusal of a busy camera, seconds:", static_cast<double>(depuis.elapsed()) / 1000.0);
  EXPECT_TRUE(AttendImages(*premier, 10));
  premier->Deconnecte();
  EXPECT_TRUE(Connecte(*second)) << "free again";
}

TEST_F(UsbPilote, UnpluggedAndPluggedInUnderAnotherNumberItGoesOnInItsFormat) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  const FormatCamera petit = {"MJPG", 320, 240, 15, 1};
  ASSERT_TRUE(pilote->AppliqueFormat(petit));
  ASSERT_TRUE(AttendImages(*pilote, 10));
  const QString stable = pilote->NomStable();
  const QString noeud = pilote->NoeudPeripherique();
  // Whoever else holds the dead node keeps its number from being given again.
  const int tenu = ::open(qPrintable(noeud), O_RDWR | O_CLOEXEC);
  ASSERT_GE(tenu, 0);

  QElapsedTimer depuis;
  depuis.start();
  ASSERT_TRUE(Ordonne("unplug"));
  EXPECT_TRUE(Attend([&] { return !SaisitProchaine(*pilote) && pilote->SignalPerdu(); }));
  Note("unplugged, seconds until the signal was lost:", static_cast<double>(depuis.elapsed()) / 1000.0);
  EXPECT_EQ(pilote->CopieTrame().Entiere().size(), QSize(320, 240)) << "the last picture stays";

  depuis.restart();
  ASSERT_TRUE(Ordonne("plug"));
  EXPECT_TRUE(Attend([&] { return SaisitProchaine(*pilote) && !pilote->SignalPerdu(); }));
  Note("plugged in, seconds until the picture was back:", static_cast<double>(depuis.elapsed()) / 1000.0);
  EXPECT_TRUE(AttendImages(*pilote, 10));
  EXPECT_NE(pilote->NoeudPeripherique(), noeud);
  EXPECT_EQ(pilote->NomStable(), stable);
  EXPECT_EQ(pilote->FormatCourant(), petit);
  EXPECT_EQ(pilote->CopieTrame().Entiere().size(), QSize(320, 240));
  ::close(tenu);
}

// What is being tried while the camera is away has no format; what was known of it is not forgotten for that.
TEST_F(UsbPilote, ItsFormatIsHadBackAfterSourcesThatWereRefusedWhileItWasAway) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  const FormatCamera petit = {"MJPG", 320, 240, 15, 1};
  ASSERT_TRUE(pilote->AppliqueFormat(petit));
  ASSERT_TRUE(AttendImages(*pilote, 5));
  ASSERT_TRUE(Ordonne("unplug"));
  EXPECT_TRUE(Attend([&] { return !SaisitProchaine(*pilote) && pilote->SignalPerdu(); }));
  for (int fois = 0; fois < 2; ++fois) EXPECT_FALSE(pilote->ChangeSource(QStringLiteral("/no/such/film.avi")));
  ASSERT_TRUE(Ordonne("plug"));
  EXPECT_TRUE(AttendImages(*pilote, 5));
  EXPECT_EQ(pilote->FormatCourant(), petit);
}

TEST_F(UsbPilote, NothingLeaksOverManyReplugs) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 5));
  qsizetype ouverts = 0;
  for (int tour = 0; tour < 4; ++tour) {
    ASSERT_TRUE(Ordonne("unplug"));
    ASSERT_TRUE(Attend([&] { return !SaisitProchaine(*pilote) && pilote->SignalPerdu(); }));
    ASSERT_TRUE(Ordonne("plug"));
    ASSERT_TRUE(AttendImages(*pilote, 5));
    if (tour == 0) ouverts = Descripteurs();
  }
  EXPECT_LE(Descripteurs(), ouverts);
}

TEST_F(UsbPilote, AStalledCameraIsNoticedByTheAgeOfItsFrameAndComesBack) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 10));
  QElapsedTimer depuis;
  depuis.start();
  ASSERT_TRUE(Ordonne("stall"));
  EXPECT_TRUE(Attend([&] { return !SaisitProchaine(*pilote) && pilote->SignalPerdu(); }));
  Note("stalled, seconds until the signal was lost:", static_cast<double>(depuis.elapsed()) / 1000.0);
  EXPECT_EQ(pilote->CopieTrame().Entiere().size(), QSize(640, 480));
  depuis.restart();
  ASSERT_TRUE(Ordonne("go"));
  EXPECT_TRUE(Attend([&] { return SaisitProchaine(*pilote) && !pilote->SignalPerdu(); }));
  Note("frames again, seconds until the picture was back:", static_cast<double>(depuis.elapsed()) / 1000.0);
  EXPECT_TRUE(AttendImages(*pilote, 10));
}

TEST_F(UsbPilote, ASilentCameraIsNotConnectedAndNothingStaysOpen) {
  ASSERT_TRUE(Ordonne("stall"));
  const auto pilote = Pilote();
  int tics = 0;
  QTimer tic;
  QObject::connect(&tic, &QTimer::timeout, &tic, [&tics] { ++tics; });
  tic.start(100);
  EXPECT_FALSE(pilote->Connecte());
  EXPECT_GT(tics, 5) << "the program lives while it waits";
  ASSERT_TRUE(Ordonne("go"));
  const auto autre = Pilote();
  EXPECT_TRUE(Connecte(*autre));
}

TEST_F(UsbPilote, WithoutPermissionThereIsNoConnectionAndWithItThereIs) {
  const auto premier = Pilote();
  // By its node, which may have another number since it was plugged in again.
  const auto nomme = Pilote(ListePeripheriques().first().Noeud);
  ASSERT_EQ(::seteuid(65534), 0);
  const bool connecte = premier->Connecte();
  const bool nommeConnecte = nomme->Connecte();
  ASSERT_EQ(::seteuid(0), 0);
  EXPECT_FALSE(connecte);
  EXPECT_FALSE(nommeConnecte);
  EXPECT_TRUE(Connecte(*nomme));
}

TEST_F(UsbPilote, WithoutACameraThereIsNoConnection) {
  ASSERT_TRUE(Ordonne("unplug"));
  ASSERT_TRUE(Attend([] { return ListePeripheriques().isEmpty(); }));
  const auto pilote = Pilote();
  EXPECT_FALSE(pilote->Connecte());
}

}  // namespace
}  // namespace vaktor
