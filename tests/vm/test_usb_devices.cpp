// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of a USB camera behind the ordinary driver uvcvideo. Runs inside the virtual machine.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QSet>

#include "support/camera_list.h"
#include "vm/guest.h"

namespace vaktor {
namespace {

const QString kNoeud = QStringLiteral("/dev/video0");

TEST(UsbPeripherique, ItsMetadataNodeIsNoCamera) {
  ASSERT_TRUE(QFile::exists("/dev/video1")) << "uvcvideo makes one node for pictures, one for metadata";
  const QList<PeripheriqueVideo> liste = ListePeripheriques();
  ASSERT_EQ(liste.size(), 1);
  EXPECT_EQ(liste.first().Noeud, kNoeud);
  EXPECT_TRUE(liste.first().Nom.contains("Emulated USB webcam")) << qPrintable(liste.first().Nom);
  EXPECT_TRUE(ListeFormats("/dev/video1").isEmpty());
}

TEST(UsbPeripherique, ItsStableNameIsTheLinkThatUdevMade) {
  const QList<PeripheriqueVideo> liste = ListePeripheriques();
  ASSERT_EQ(liste.size(), 1);
  EXPECT_TRUE(liste.first().NomStable.startsWith("/dev/v4l/by-id/usb-")) << qPrintable(liste.first().NomStable);
  const auto trouve = RetrouvePeripherique(liste.first().NomStable);
  ASSERT_TRUE(trouve.has_value());
  EXPECT_EQ(trouve->Noeud, kNoeud);
}

TEST(UsbPeripherique, ItIsFoundByItsBusToo) {
  // As it would have been remembered where no udev runs.
  const auto trouve = RetrouvePeripherique("uvcvideo|Emulated USB webcam: Emulated U|usb-vhci_hcd.0-1");
  ASSERT_TRUE(trouve.has_value());
  EXPECT_EQ(trouve->Noeud, kNoeud);
}

TEST(UsbPeripherique, OffersMjpgAndYuyvInThreeSizesAndFourRates) {
  const QList<FormatCamera> formats = ListeFormats(kNoeud);
  EXPECT_EQ(formats.size(), 2 * 3 * 4);
  QSet<QString> codages;
  for (const FormatCamera& f : formats) codages.insert(f.Codage);
  EXPECT_EQ(codages, (QSet<QString>{"MJPG", "YUYV"}));
  // Largest first, fastest first; the driver tells of 30 frames as of 333333 times 100 ns.
  EXPECT_EQ(formats.first(), (FormatCamera{"MJPG", 1280, 720, 30, 1}));
  EXPECT_EQ(formats.at(11), (FormatCamera{"MJPG", 320, 240, 5, 1}));
  EXPECT_EQ(formats.at(12), (FormatCamera{"YUYV", 1280, 720, 30, 1}));
}

TEST(UsbPeripherique, GetsTheUsualFormatFirst) {
  EXPECT_EQ(ChoisitPremierFormat(ListeFormats(kNoeud)), (FormatCamera{"YUYV", 640, 480, 30, 1}));
}

TEST(UsbPeripherique, WithoutPermissionItGivesNothing) {
  ASSERT_EQ(::seteuid(65534), 0);
  const QList<PeripheriqueVideo> liste = ListePeripheriques();
  const QList<FormatCamera> formats = ListeFormats(kNoeud);
  ASSERT_EQ(::seteuid(0), 0);
  EXPECT_TRUE(liste.isEmpty());
  EXPECT_TRUE(formats.isEmpty());
  EXPECT_EQ(ListePeripheriques().size(), 1);
}

TEST(UsbPeripherique, PluggedInAgainUnderAnotherNumberItIsFoundByItsStableName) {
  const QString stable = ListePeripheriques().first().NomStable;
  // Whoever holds the old node open keeps its number from being given again.
  const int tenu = ::open("/dev/video0", O_RDWR | O_CLOEXEC);
  ASSERT_GE(tenu, 0);
  ASSERT_TRUE(Ordonne("unplug"));
  EXPECT_TRUE(Attend([] { return ListePeripheriques().isEmpty(); }));
  EXPECT_EQ(RetrouvePeripherique(stable), std::nullopt);
  ASSERT_TRUE(Ordonne("plug"));
  EXPECT_TRUE(Attend([&] { return RetrouvePeripherique(stable).has_value(); }));
  const auto trouve = RetrouvePeripherique(stable);
  ASSERT_TRUE(trouve.has_value());
  EXPECT_NE(trouve->Noeud, kNoeud);
  EXPECT_EQ(trouve->NomStable, stable);
  EXPECT_EQ(ListeFormats(trouve->Noeud).size(), 24);
  EXPECT_TRUE(ListeFormats(kNoeud).isEmpty());

  ::close(tenu);  // back to the first number for the tests that follow
  ASSERT_TRUE(Ordonne("unplug"));
  EXPECT_TRUE(Attend([] { return ListePeripheriques().isEmpty(); }));
  ASSERT_TRUE(Ordonne("plug"));
  EXPECT_TRUE(Attend([&] { return RetrouvePeripherique(stable).has_value(); }));
  EXPECT_EQ(RetrouvePeripherique(stable)->Noeud, kNoeud);
}

}  // namespace
}  // namespace vaktor
