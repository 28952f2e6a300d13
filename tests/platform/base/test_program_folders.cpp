// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "platform/base/program_folders.h"
#include "support/small_disk.h"

namespace vaktor {
namespace {

class ProgramFolders : public testing::Test {
 protected:
  void SetUp() override {
    AncienData = qgetenv("XDG_DATA_HOME");
    AncienConfig = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(Dossier.path() + QStringLiteral("/data")));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Dossier.path() + QStringLiteral("/config")));
  }
  void TearDown() override {
    qputenv("XDG_DATA_HOME", AncienData);
    qputenv("XDG_CONFIG_HOME", AncienConfig);
  }
  QTemporaryDir Dossier;
  QByteArray AncienData, AncienConfig;
};

TEST_F(ProgramFolders, AFolderThatMayBeWrittenHoldsEverything) {
  const DossiersProgramme dossiers = ChoisitDossiers(Dossier.path() + u'/', QString());
  EXPECT_EQ(dossiers.Executables, Dossier.path());
  EXPECT_EQ(dossiers.Donnees, Dossier.path());
  EXPECT_EQ(dossiers.PhotosParDefaut(), Dossier.path() + QStringLiteral("\\intrus"));
}

TEST_F(ProgramFolders, AReadOnlyInstallationWritesToTheUsersDataFolder) {
  PetitDisque petit(65'536);
  if (!petit.EstMonte() || !petit.RendLectureSeule()) GTEST_SKIP() << petit.Raison();
  const DossiersProgramme dossiers = ChoisitDossiers(petit.Chemin(), QString());
  EXPECT_EQ(dossiers.Executables, petit.Chemin());
  EXPECT_EQ(dossiers.Donnees, Dossier.path() + QStringLiteral("/data/vaktor"));
}

TEST_F(ProgramFolders, APrivateFolderGoesBeforeBoth) {
  const DossiersProgramme dossiers = ChoisitDossiers(Dossier.path(), QStringLiteral("/srv/essai/"));
  EXPECT_EQ(dossiers.Executables, Dossier.path());
  EXPECT_EQ(dossiers.Donnees, QStringLiteral("/srv/essai"));
  EXPECT_EQ(ChoisitDossiers(Dossier.path(), QStringLiteral("essai")).Donnees, QDir::currentPath() + "/essai");
}

TEST_F(ProgramFolders, AnInstalledProgramWritesToTheUsersFoldersEvenWhereItMayWriteBesideItself) {
  const QString installe = Dossier.path() + QStringLiteral("/usr/libexec/vaktor");
  ASSERT_TRUE(QDir().mkpath(installe));
  const DossiersProgramme dossiers = ChoisitDossiers(installe, QString());
  EXPECT_EQ(dossiers.Executables, installe);
  EXPECT_EQ(dossiers.Donnees, Dossier.path() + QStringLiteral("/data/vaktor"));
  EXPECT_EQ(dossiers.PhotosParDefaut(),
            QStandardPaths::writableLocation(QStandardPaths::PicturesLocation) + QStringLiteral("\\Vaktor"));
  const DossiersProgramme prives = ChoisitDossiers(installe, QStringLiteral("/srv/essai"));
  EXPECT_EQ(prives.Donnees, QStringLiteral("/srv/essai"));
  EXPECT_EQ(prives.PhotosParDefaut(), QStringLiteral("/srv/essai\\intrus"));
}

TEST_F(ProgramFolders, TheExecutablesFolderIsThatOfTheRunningProgram) {
  EXPECT_EQ(TrouveDossiers().Executables, QCoreApplication::applicationDirPath());
  EXPECT_EQ(TrouveDossiers(QStringLiteral("/srv/essai")).Donnees, QStringLiteral("/srv/essai"));
}

TEST_F(ProgramFolders, SettingsLieInTheUsersConfigurationOrThePrivateFolder) {
  EXPECT_EQ(TrouveDossierReglages(), Dossier.path() + QStringLiteral("/config/vaktor"));
  EXPECT_EQ(TrouveDossierReglages(QStringLiteral("/srv/essai")), QStringLiteral("/srv/essai"));
}

TEST_F(ProgramFolders, StateLiesWhereTheDesktopSaysElseInTheHomeElseInThePrivateFolder) {
  const QByteArray avant = qgetenv("XDG_STATE_HOME");
  qputenv("XDG_STATE_HOME", "/srv/state");
  EXPECT_EQ(TrouveDossierEtat(), QStringLiteral("/srv/state/vaktor"));
  const QString maison = QDir::homePath() + QStringLiteral("/.local/state/vaktor");
  for (const char* aucun : {"", "state"}) {
    qputenv("XDG_STATE_HOME", aucun);
    EXPECT_EQ(TrouveDossierEtat(), maison) << aucun;
  }
  EXPECT_EQ(TrouveDossierEtat(QStringLiteral("/srv/essai/")), QStringLiteral("/srv/essai/etat"));
  qputenv("XDG_STATE_HOME", avant);
}

TEST_F(ProgramFolders, TheFoldersForFilesInPassingAreMadeOnceAndKept) {
  const DossiersProgramme dossiers{Dossier.path(), Dossier.path() + QStringLiteral("/neuf/vaktor")};
  EXPECT_EQ(PrepareDossiers(dossiers), QString());
  EXPECT_TRUE(QDir(dossiers.Donnees + QStringLiteral("/Temp/FTP")).exists());
  EXPECT_FALSE(QDir(dossiers.Donnees + QStringLiteral("/intrus")).exists());
  EXPECT_EQ(PrepareDossiers(dossiers), QString());
}

TEST_F(ProgramFolders, AUserWithoutAFolderOfPicturesGetsOne) {
  const QString images = Dossier.path() + QStringLiteral("/maison/Images");
  EXPECT_EQ(PrepareDossiers({Dossier.path(), Dossier.path(), images}), QString());
  EXPECT_TRUE(QDir(images).exists());
}

TEST_F(ProgramFolders, TheFolderThatCannotBeMadeIsNamed) {
  const DossiersProgramme dossiers{Dossier.path(), Dossier.path()};
  QFile obstacle(Dossier.path() + QStringLiteral("/Temp"));
  ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
  EXPECT_EQ(PrepareDossiers(dossiers), Dossier.path() + QStringLiteral("/Temp"));
}

}  // namespace
}  // namespace vaktor
