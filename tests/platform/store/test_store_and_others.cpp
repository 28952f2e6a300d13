// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file and other processes, other users and full disks.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "base/failure.h"
#include "fakes/fake_files.h"
#include "fakes/fake_health_report.h"
#include "platform/store/file_store.h"
#include "platform/store/private_file.h"
#include "settings/persistent_settings.h"

namespace vaktor {
namespace {

class Muets : public CommandesModules {
 public:
  std::function<void()> Averti;
  void EnvoiFTP(Commande) override { Averti(); }
  void EnvoiMail(Commande) override {}
  void EnvoiSon(Commande) override {}
};

QByteArray Joue(const QString& fichier, const QStringList& mots, bool sansDroits = false) {
  QProcess processus;
  QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
  if (sansDroits) milieu.insert("SANS_DROITS", "1");
  milieu.insert("LC_ALL", "C");
  processus.setProcessEnvironment(milieu);
  processus.start(PROGRAMME_MAGASIN, QStringList{fichier} + mots);
  processus.closeWriteChannel();
  EXPECT_TRUE(processus.waitForFinished(20'000));
  return processus.readAllStandardOutput().trimmed();
}

QByteArray Demande(QProcess& compagnon, const QByteArray& cle) {
  compagnon.write(cle + '\n');
  while (!compagnon.canReadLine() && compagnon.waitForReadyRead(20'000)) {
  }
  return compagnon.readLine().trimmed();
}

TEST(MagasinPartage, WhoSavesHasTheFolderToItself) {
  const QTemporaryDir dossier;
  const VerrouDossier verrou(dossier.path());
  const int autre = ::open(QFile::encodeName(dossier.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_GE(autre, 0);
  EXPECT_NE(::flock(autre, LOCK_SH | LOCK_NB), 0);
  ::close(autre);
}

TEST(MagasinPartage, AProgramThatIsStartedDuringASaveDoesNotKeepTheFolderToItself) {
  const QTemporaryDir dossier;
  QProcess compagnon;
  {
    const VerrouDossier verrou(dossier.path());
    ASSERT_TRUE(verrou.Tenu());
    compagnon.start("/bin/sleep", {"1000"});
    ASSERT_TRUE(compagnon.waitForStarted());
  }
  EXPECT_NO_THROW(VerrouDossier(dossier.path()));
  compagnon.kill();
  compagnon.waitForFinished();
}

TEST(MagasinPartage, ShowsEachSaveToARunningCompanionWhenItIsTold) {
  const QTemporaryDir dossier;
  const QString fichier = dossier.filePath("settings.ini");
  QProcess compagnon;
  compagnon.start(PROGRAMME_MAGASIN, {fichier, "companion"});
  ASSERT_TRUE(compagnon.waitForReadyRead(20'000));
  ASSERT_EQ(compagnon.readLine(), "ready\n");

  MagasinFichier magasin(fichier);
  Parametres valeurs;
  FauxFichiers disque;
  Muets modules;
  faux::SanteFausse sante;
  ReglagesPersistants reglages({.Valeurs = valeurs,
                                .Magasin = magasin,
                                .Disque = disque,
                                .Modules = modules,
                                .DossierPhotos = "/prog\\intrus",
                                .TailleImage = [] { return QSize(320, 240); },
                                .Sante = sante});
  disque.AjouteDossier("/prog/intrus");
  modules.Averti = [] {};
  reglages.TermineChargement();  // until then nothing is saved
  QByteArray vu;
  modules.Averti = [&] { vu = Demande(compagnon, "FTP/refresh"); };  // at the moment of "Optio"
  for (int i = 0; i < 40; ++i) {
    valeurs.IntervalleFtp = QString::number(i % 10);  // one digit: the size of the file does not change
    reglages.SauveParametres();
    ASSERT_EQ(vu, QByteArray::number(i % 10)) << "save " << i;
  }
  EXPECT_EQ(Demande(compagnon, "MAIL/smtpactif"), "True");
  EXPECT_EQ(Demande(compagnon, "MAIL/nosuchkey"), "MISSING");
  compagnon.closeWriteChannel();
  EXPECT_TRUE(compagnon.waitForFinished(20'000));
}

TEST(MagasinPartage, KeepsAValueUnseenThatWasSetAndNotSaved) {
  const QTemporaryDir dossier;
  const QString fichier = dossier.filePath("settings.ini");
  MagasinFichier magasin(fichier);
  magasin.EcritReglage("FTP", "user", "typed");
  EXPECT_EQ(MagasinFichier(fichier).LitReglage("FTP", "user", "MISSING"), "MISSING");
  magasin.Vide();
  EXPECT_EQ(MagasinFichier(fichier).LitReglage("FTP", "user", "MISSING"), "typed");
}

TEST(MagasinPartage, IsNotHeldUpByTheLockFileOfAKilledProcess) {
  // Empty: killed between making it and writing its name into it. Nobody can tell whose it is, and QSettings alone
  // would wait for half a minute, longer than any process of these tests may take.
  const QTemporaryDir dossier;
  const QString fichier = dossier.filePath("settings.ini");
  QFile verrou(fichier + ".lock");
  ASSERT_TRUE(verrou.open(QIODevice::WriteOnly));
  verrou.close();
  EXPECT_EQ(Joue(fichier, {"save", "x"}), "saved");
  EXPECT_FALSE(verrou.exists());
}

TEST(MagasinRefuse, TellsOfAFolderThatMayNotBeWritten) {
  const QTemporaryDir dossier;
  const QString fichier = dossier.filePath("settings.ini");
  ASSERT_EQ(Joue(fichier, {"save", "old"}), "saved");
  // For a run by root the process gives its rights up, and the file must be open to the user it becomes.
  QFile::setPermissions(fichier, QFile::ReadOwner | QFile::ReadOther | QFile::WriteOther);
  QFile::setPermissions(dossier.path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
  EXPECT_EQ(Joue(fichier, {"save", "new"}, true), "75 " + fichier.toUtf8() + ": Permission denied");
  QFile::setPermissions(dossier.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  EXPECT_EQ(MagasinFichier(fichier).LitReglage("FTP", "user", ""), "old");
}

TEST(MagasinRefuse, TellsOfAFileThatMayNotBeRead) {
  if (::getuid() != 0) GTEST_SKIP() << "needs a file of another user, so root";
  const QTemporaryDir dossier;
  const QString fichier = dossier.filePath("settings.ini");
  ASSERT_EQ(Joue(fichier, {"save", "old"}), "saved");
  QFile::setPermissions(dossier.path(), QFile::Permissions(0x7777));
  EXPECT_EQ(Joue(fichier, {"save", "new"}, true), "75 " + fichier.toUtf8() + ": Permission denied");
  EXPECT_EQ(MagasinFichier(fichier).LitReglage("FTP", "user", ""), "old");
}

// Into a mount namespace of our own, so that nothing of what is mounted here is seen outside; who is not root becomes
// the root of a user namespace first. Only this process, which runs one test when CTest starts it.
bool PrepareMontage() {
  const QByteArray identite = "0 " + QByteArray::number(::getuid()) + " 1";
  const bool racine = ::getuid() == 0;
  if (::unshare(racine ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  if (!racine) {
    QFile table("/proc/self/uid_map");
    if (!table.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || table.write(identite) < 0) return false;
  }
  return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// A file system in memory of a few pages.
class PetitDisque {
 public:
  PetitDisque() {
    const QByteArray dossier = QFile::encodeName(Dossier_.path());
    Monte_ = PrepareMontage() && ::mount("tmpfs", dossier.constData(), "tmpfs", 0, "size=64k,mode=0755") == 0;
  }
  ~PetitDisque() {
    if (Monte_) ::umount2(QFile::encodeName(Dossier_.path()).constData(), MNT_DETACH);
  }
  PetitDisque(const PetitDisque&) = delete;
  PetitDisque& operator=(const PetitDisque&) = delete;

  bool Monte() const { return Monte_; }
  QString Chemin(const QString& nom) const { return Dossier_.filePath(nom); }

  void Remplit() const {
    QFile lest(Chemin("lest"));
    ASSERT_TRUE(lest.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (lest.write(QByteArray(512, 'x')) > 0) {
    }
  }
  void Libere() const { QFile::remove(Chemin("lest")); }

 private:
  QTemporaryDir Dossier_;
  bool Monte_ = false;
};

TEST(MagasinRefuse, KeepsTheOldTableOnAFullDiskAndSavesWhenThereIsRoomAgain) {
  const PetitDisque disque;
  if (!disque.Monte()) GTEST_SKIP() << "this system lets nobody mount a small file system";
  const QString fichier = disque.Chemin("settings.ini");
  MagasinFichier magasin(fichier);
  magasin.EcritReglage("FTP", "user", "old");
  magasin.EcritReglage("MAIL", "corp", QString(3000, u'a'));
  magasin.Vide();
  disque.Remplit();
  magasin.EcritReglage("FTP", "user", "new");
  for (int essai = 0; essai < 3; ++essai) {
    try {
      magasin.Vide();
      FAIL();
    } catch (const Echec& echec) {
      EXPECT_EQ(echec.Numero(), kAccesFichier);
      EXPECT_EQ(echec.Description(), fichier + ": No space left on device");
    }
    EXPECT_EQ(Joue(fichier, {"companion"}), "ready");
    EXPECT_TRUE(QFile(fichier).exists());
  }
  QFile copie(fichier);
  ASSERT_TRUE(copie.open(QIODevice::ReadOnly));
  EXPECT_TRUE(copie.readAll().contains("user=\"old\""));
  disque.Libere();
  magasin.Vide();
  EXPECT_EQ(MagasinFichier(fichier).LitReglage("FTP", "user", ""), "new");
  EXPECT_EQ(MagasinFichier(fichier).LitReglage("MAIL", "corp", "").size(), 3000);
}

TEST(MagasinRefuse, TellsOfAFullDiskOnTheVeryFirstSave) {
  const PetitDisque disque;
  if (!disque.Monte()) GTEST_SKIP() << "this system lets nobody mount a small file system";
  disque.Remplit();
  EXPECT_EQ(Joue(disque.Chemin("settings.ini"), {"save", "x"}),
            "75 " + disque.Chemin("settings.ini").toUtf8() + ": No space left on device");
}

}  // namespace
}  // namespace vaktor
