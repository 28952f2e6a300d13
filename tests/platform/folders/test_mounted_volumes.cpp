// SPDX-License-Identifier: GPL-3.0-or-later
// Which mounts are volumes that a person knows, and what they are called.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "platform/folders/mounted_volumes.h"

namespace vaktor {
namespace {

QStringList Volumes(const QByteArray& table, const QString& etiquette = {}) {
  QStringList lieux;
  for (const LieuDisque& lieu : ListeVolumes(table, [&](const QString&) { return etiquette; })) {
    lieux += lieu.Nom + QStringLiteral(" @ ") + lieu.Chemin;
  }
  return lieux;
}

TEST(VolumesMontes, DisksAndNetworkComeByNameAndTheSystemsOwnAreLeftOut) {
  // A desktop of today, shortened: the optional fields before the dash come in any number.
  const QByteArray table =
      "22 27 0:21 / /proc rw,relatime shared:5 - proc proc rw\n"
      "23 27 0:22 / /sys rw,relatime - sysfs sysfs rw\n"
      "24 27 0:6 / /dev rw - devtmpfs devtmpfs rw\n"
      "27 1 254:0 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw\n"
      "28 27 254:1 / /boot/efi rw - vfat /dev/nvme0n1p1 rw\n"
      "29 27 0:30 / /run rw - tmpfs tmpfs rw\n"
      "30 27 7:0 / /snap/core/1 ro - squashfs /dev/loop0 ro\n"
      "31 27 254:3 / /home rw,relatime shared:1 master:2 - ext4 /dev/nvme0n1p3 rw\n"
      "32 27 8:1 / /media/anna/CLE\\040USB rw shared:9 - vfat /dev/sdb1 rw\n"
      "33 27 8:17 / /run/media/anna/alpha rw - exfat /dev/sdc1 rw\n"
      "34 27 0:50 / /mnt/nas rw - nfs4 nas:/photos rw\n"
      "35 27 0:51 / /mnt/partage rw - cifs //serveur/partage rw\n"
      "36 27 0:52 / /home/anna/loin rw - fuse.sshfs anna@loin: rw\n"
      "37 27 0:53 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
      "38 27 0:54 / /net rw - autofs systemd-1 rw\n"
      "39 27 0:55 / /tmp rw - tmpfs tmpfs rw\n";
  EXPECT_EQ(Volumes(table), (QStringList{QStringLiteral("alpha @ /run/media/anna/alpha"),
                                         QStringLiteral("CLE USB @ /media/anna/CLE USB"),
                                         QStringLiteral("home @ /home"), QStringLiteral("loin @ /home/anna/loin"),
                                         QStringLiteral("nas @ /mnt/nas"), QStringLiteral("partage @ /mnt/partage")}));
}

TEST(VolumesMontes, ImagesAreLeftOutAndPlacesThatAreCalledMuchLikeTheSystemsAreNot) {
  EXPECT_TRUE(Volumes("40 27 7:1 / /mnt/image rw - ext4 /dev/loop1 rw\n"
                      "41 27 7:2 / /mnt/disque rw - iso9660 /dev/loop2 rw\n")
                  .isEmpty());
  EXPECT_EQ(Volumes("42 27 8:1 / /optique rw - ext4 /dev/sda1 rw\n"
                    "43 27 8:2 / /opt/vaktor rw - ext4 /dev/sda2 rw\n"),
            QStringList{QStringLiteral("optique @ /optique")});
}

TEST(VolumesMontes, BindMountsAreNoVolumesButSubvolumesAre) {
  EXPECT_TRUE(Volumes("40 27 8:1 /var/lib/x /srv/x rw - ext4 /dev/sda1 rw\n"
                      "41 27 8:1 /etc/hosts /etc/hosts rw - ext4 /dev/sda1 rw\n")
                  .isEmpty());
  EXPECT_EQ(Volumes("42 27 0:40 /@home /home rw - btrfs /dev/sda2 rw\n"), QStringList{QStringLiteral("home @ /home")});
}

TEST(VolumesMontes, LabelOfTheDeviceIsTheNameAndAPlaceComesOnce) {
  EXPECT_EQ(Volumes("43 27 8:1 / /mnt/a rw - ext4 /dev/sda1 rw\n"
                    "44 43 8:2 / /mnt/a rw - ext4 /dev/sda2 rw\n",
                    QStringLiteral("Archives")),
            QStringList{QStringLiteral("Archives @ /mnt/a")});
}

TEST(VolumesMontes, PlacesThatCannotBeStoredAreLeftOut) {
  EXPECT_TRUE(Volumes("45 27 8:1 / /mnt/a\\134b rw - ext4 /dev/sda1 rw\n"
                      "46 27 8:1 / /mnt/\xff\xfe rw - ext4 /dev/sda1 rw\n")
                  .isEmpty());
}

TEST(VolumesMontes, DamagedTableGivesWhatCanBeRead) {
  EXPECT_TRUE(Volumes(QByteArray()).isEmpty());
  EXPECT_TRUE(Volumes("\n\n-\n1 2 3\n47 27 8:1 / /mnt/a rw shared:1 - ext4\n48 27 8:1 / /mnt/\\0 rw -\n").isEmpty());
  EXPECT_EQ(Volumes("x\n49 27 8:1 / /mnt/a\\04 rw - ext4 /dev/sda1 rw"), QStringList())
      << "a lone backslash is a name that cannot be stored";
  EXPECT_EQ(Volumes("50 27 8:1 / /mnt/b rw - ext4 /dev/sda1"), QStringList{QStringLiteral("b @ /mnt/b")});
}

TEST(VolumesMontes, LabelIsFoundThroughTheLinksOfTheSystem) {
  const QTemporaryDir dossier;
  // Any file under /dev does for the device.
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/null"), dossier.filePath(QStringLiteral("CLE\\x20USB\\xc3\\xa9"))));
  EXPECT_EQ(DonneEtiquette(QStringLiteral("/dev/null"), dossier.path()), QString::fromUtf8("CLE USBé"));
  EXPECT_TRUE(DonneEtiquette(QStringLiteral("/dev/zero"), dossier.path()).isEmpty());
  EXPECT_TRUE(DonneEtiquette(QStringLiteral("nas:/photos"), dossier.path()).isEmpty());
  EXPECT_TRUE(DonneEtiquette(QStringLiteral("/dev/gone"), dossier.path()).isEmpty());
}

}  // namespace
}  // namespace vaktor
