// SPDX-License-Identifier: GPL-3.0-or-later
// The folder through which the main program hands over what the watch has to say.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "modules/mail/watch_folder.h"
#include "modules/mail/watch_message.h"

namespace vaktor::essai {
namespace {

struct FolderOfTheWatch : testing::Test {
  QTemporaryDir Temporaire;
  DossierVeille Dossier{Temporaire.filePath("veille")};

  void Pose(const QString& nom, const QByteArray& photo = {}) const { PoseMessage(Dossier.Dossier(), nom, photo); }
  bool EstLa(const QString& fichier) const { return QFile::exists(Dossier.Dossier() + '/' + fichier); }
};

TEST_F(FolderOfTheWatch, MessagesOfOneMomentComeByTheirNumber) {
  for (const char* nom : {"5000-2", "5000-10", "5000-1", "4000-11"}) Pose(nom);
  EXPECT_EQ(Dossier.Liste(), QStringList({"4000-11", "5000-1", "5000-2", "5000-10"}));
}

TEST_F(FolderOfTheWatch, AMessageThatDoesNotGoKeepsItsPicture) {
  Pose("5000-1", kImageEntiere);
  const QString message = Dossier.Dossier() + "/5000-1.json";
  ASSERT_TRUE(QFile::remove(message));
  ASSERT_TRUE(QDir().mkpath(message + "/in it"));
  EXPECT_FALSE(Dossier.Efface("5000-1"));
  EXPECT_TRUE(EstLa("5000-1.jpg"));
  ASSERT_TRUE(QDir(message).removeRecursively());
  EXPECT_TRUE(Dossier.Efface("5000-1"));
  EXPECT_FALSE(EstLa("5000-1.jpg"));
}

TEST_F(FolderOfTheWatch, APictureWhoseMessageWaitsStaysHoweverOldItIs) {
  Pose("5000-1", kImageEntiere);
  Pose("5000-2", kImageEntiere);
  ASSERT_TRUE(QFile::remove(Dossier.Dossier() + "/5000-2.json"));
  Dossier.RetireOrphelins(5000 + DossierVeille::kAgeOrphelinMs + 1);
  EXPECT_TRUE(EstLa("5000-1.jpg"));
  EXPECT_FALSE(EstLa("5000-2.jpg"));
}

}  // namespace
}  // namespace vaktor::essai
