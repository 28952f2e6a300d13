// SPDX-License-Identifier: GPL-3.0-or-later
// The real system behind the ports: which program each rehearsal starts, and where the pages of the manual are.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "app/camera.h"
#include "app/real_system.h"

namespace vaktor {
namespace {

/// In the place of a companion, beside this program: says its own name.
void PoseCompagnon(const QString& nom) {
  QFile fichier(QCoreApplication::applicationDirPath() + '/' + nom);
  fichier.remove();
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.write("#!/bin/sh\necho \"${0##*/}\"\n");
  ASSERT_TRUE(fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

QString Essaie(EssaiReglages& essai) {
  QString dit;
  bool fini = false;
  essai.Lance(
      "{}", {.SurLigne = [&dit](const QString& ligne) { dit += ligne; }, .SurFin = [&fini](FinEssai) { fini = true; }});
  EXPECT_TRUE(QTest::qWaitFor([&fini] { return fini; }, 60'000));
  return dit;
}

TEST(SystemeDuProgramme, EachRehearsalStartsItsOwnCompanion) {
  for (const char* nom : {"VAKTORftp", "VAKTORmail"}) PoseCompagnon(nom);
  QTemporaryDir dossier;
  ArgumentsDepart arguments;
  arguments.Dossier = dossier.path();
  SystemeReel systeme(arguments);
  const PortsSysteme ports = systeme.Ports();
  EXPECT_EQ(Essaie(ports.EssaiMail), "VAKTORmail");
  EXPECT_EQ(Essaie(ports.EssaiFtp), "VAKTORftp");
}

TEST(SystemeDuProgramme, ThePagesOfTheManualLieBesideTheProgram) {
  QTemporaryDir dossier;
  ArgumentsDepart arguments;
  arguments.Dossier = dossier.path();
  SystemeReel systeme(arguments);
  EXPECT_EQ(systeme.Ports().Site.Dossier, QCoreApplication::applicationDirPath() + "/site");
}

// What ./run names where there is no camera would be armed at each login, and look like a watch.
TEST(SystemeDuProgramme, ALoginNeverStartsWithTheBuiltInPicture) {
  for (const QByteArrayView camera : {"test", "rtsp://h/1"}) {
    QTemporaryDir dossier;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(dossier.path()));
    ArgumentsDepart arguments;
    arguments.Camera = QString::fromLatin1(camera);
    SystemeReel systeme(arguments);
    ASSERT_TRUE(systeme.Ports().Session.Veut(true));
    EXPECT_TRUE(systeme.Ports().Session.EstVoulue());
    QFile entree(dossier.filePath("autostart/") + NommeEntreeSession({}));
    ASSERT_TRUE(entree.open(QIODevice::ReadOnly));
    const QByteArray texte = entree.readAll();
    EXPECT_TRUE(texte.contains(" /alarm"));
    EXPECT_EQ(texte.contains("/camera:"), camera != "test") << texte.constData();
  }
  qunsetenv("XDG_CONFIG_HOME");
}

TEST(JournalDeCapture, WritesItsLinesIntoTheFolderOfTheStateWhichItMakes) {
  const QTemporaryDir dossier;
  const QString etat = dossier.filePath("a/b");
  const auto note = OuvreJournalCapture(etat);
  note("camera: lost");
  QFile fichier(etat + "/capture.log");
  ASSERT_TRUE(QTest::qWaitFor([&] { return fichier.size() > 0; }, 10'000));
  ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
  EXPECT_TRUE(fichier.readAll().endsWith(" camera: lost\n"));
  EXPECT_EQ(fichier.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

}  // namespace
}  // namespace vaktor
