// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file: values, mode, one write for each save, and what disks and people do to it.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <array>
#include <cstring>

#include "base/failure.h"
#include "platform/store/file_store.h"
#include "platform/store/store_generations.h"
#include "settings/settings_text.h"

namespace vaktor {
namespace {

class MagasinSurDisque : public testing::Test {
 protected:
  QTemporaryDir Dossier_;
  QString Fichier_ = Dossier_.filePath("config/vaktor/settings.ini");

  void Pose(const QByteArray& contenu) {
    QDir().mkpath(QFileInfo(Fichier_).absolutePath());
    QFile fichier(Fichier_);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly | QIODevice::Truncate));
    fichier.write(contenu);
  }
  QByteArray Contenu(const QString& suffixe = {}) const {
    QFile fichier(Fichier_ + suffixe);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("NO FILE");
  }
  int Mode(const QString& chemin) const {
    struct stat etat {};
    return ::stat(QFile::encodeName(chemin).constData(), &etat) == 0 ? static_cast<int>(etat.st_mode & 07777) : -1;
  }
};

TEST_F(MagasinSurDisque, GivesTheDefaultForAMissingKeyAndMakesNothing) {
  const MagasinFichier magasin(Fichier_);
  EXPECT_EQ(magasin.LitReglage("general", "langue", "0"), "0");
  EXPECT_FALSE(QFileInfo::exists(Fichier_));
  EXPECT_FALSE(QFileInfo::exists(Dossier_.filePath("config")));
}

TEST_F(MagasinSurDisque, GivesWhatWasWrittenAtOnceAndToOthersAfterVide) {
  MagasinFichier magasin(Fichier_);
  magasin.EcritReglage("SON", "HWNDVK", "4711");
  EXPECT_EQ(magasin.LitReglage("SON", "HWNDVK", ""), "4711");
  EXPECT_EQ(Contenu(), "NO FILE");
  magasin.Vide();
  EXPECT_EQ(LitTexteReglages(Contenu()).Valeurs, ValeursReglages({{"SON/HWNDVK", "4711"}}));
}

TEST_F(MagasinSurDisque, KeepsNamesAndValuesExactly) {
  const QStringList valeurs = {"",           " a ", "a, b;c",     "@x",  "@@x", "@Variant(\x01)", "a\r\nb", "\"q\"",
                               "C:\\new\\x", "0,5", "пароль 中😀", "%41", "#a=b"};
  {
    MagasinFichier magasin(Fichier_);
    for (int i = 0; i < valeurs.size(); ++i) magasin.EcritReglage("MAIL", "v" + QString::number(i), valeurs[i]);
    magasin.EcritReglage("general", "langue", "1");
    magasin.EcritReglage("SON", "Repertoire", "/s.wav");
    magasin.EcritReglage("PHOTO", "repertoire", "/p");
    magasin.Vide();
  }
  const MagasinFichier relu(Fichier_);
  for (int i = 0; i < valeurs.size(); ++i) {
    EXPECT_EQ(relu.LitReglage("MAIL", "v" + QString::number(i), "MISSING"), valeurs[i]);
  }
  EXPECT_EQ(relu.LitReglage("general", "langue", ""), "1");
  EXPECT_EQ(relu.LitReglage("SON", "Repertoire", ""), "/s.wav");
  EXPECT_EQ(relu.LitReglage("SON", "repertoire", "MISSING"), "MISSING");
  EXPECT_EQ(relu.LitReglage("PHOTO", "repertoire", ""), "/p");
}

TEST_F(MagasinSurDisque, IsReadableAsThePlainIniFormatOfQt) {
  const QStringList valeurs = {"",
                               " a ",
                               "a, b;c",
                               "@x",
                               "@@x",
                               "@ByteArray(x)",
                               "a\r\nb\t",
                               "\"q\"",
                               "C:\\new\\x",
                               QString::fromUtf8("é\x01"
                                                 "fin 中😀"),
                               "%41"};
  MagasinFichier magasin(Fichier_);
  for (int i = 0; i < valeurs.size(); ++i) magasin.EcritReglage("MAIL", "v" + QString::number(i), valeurs[i]);
  magasin.EcritReglage("general", "langue", "1");
  magasin.Vide();
  const QSettings simple(Fichier_, QSettings::IniFormat);
  EXPECT_EQ(simple.value("general/langue").toString(), "1");
  for (int i = 0; i < valeurs.size(); ++i) {
    EXPECT_EQ(simple.value("MAIL/v" + QString::number(i)).toString(), valeurs[i]);
  }
}

TEST_F(MagasinSurDisque, BelongsToItsOwnerAloneFromTheStart) {
  const mode_t ancien = ::umask(0);
  MagasinFichier magasin(Fichier_);
  EcritGeneration(magasin, 1);
  ::umask(ancien);
  EXPECT_EQ(Mode(Fichier_), 0600);
  EXPECT_EQ(Mode(QFileInfo(Fichier_).absolutePath()), 0700);
}

TEST_F(MagasinSurDisque, TakesAWiderModeBackWhenItOpensAndWhenItSaves) {
  Pose("[FTP]\npass=\"1\"\n");
  QFile::setPermissions(Fichier_, QFile::Permissions(0x6644));
  MagasinFichier magasin(Fichier_);
  EXPECT_EQ(Mode(Fichier_), 0600);
  ::chmod(QFile::encodeName(Fichier_).constData(), 0666);
  EcritGeneration(magasin, 1);
  EXPECT_EQ(Mode(Fichier_), 0600);
}

TEST_F(MagasinSurDisque, LeavesTheMaskOfTheProcessAsItWas) {
  const mode_t ancien = ::umask(0013);
  MagasinFichier magasin(Fichier_);
  EcritGeneration(magasin, 1);
  EXPECT_EQ(::umask(ancien), mode_t{0013});
}

TEST_F(MagasinSurDisque, WritesOnceForASaveOfAllKeys) {
  MagasinFichier magasin(Fichier_);
  EcritGeneration(magasin, 1);
  const int guet = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  ::inotify_add_watch(guet, QFile::encodeName(QFileInfo(Fichier_).absolutePath()).constData(), IN_MOVED_TO);
  EcritGeneration(magasin, 2);
  QCoreApplication::processEvents();  // nothing may be left that writes again
  std::array<char, 4096> tampon{};
  const ssize_t octets = ::read(guet, tampon.data(), tampon.size());
  int ecritures = 0;
  for (ssize_t i = 0; i < octets;) {
    inotify_event evenement{};
    std::memcpy(&evenement, tampon.data() + i, sizeof evenement);
    const QByteArray nom(tampon.data() + i + static_cast<ssize_t>(sizeof evenement));
    ecritures += nom == "settings.ini" ? 1 : 0;
    i += static_cast<ssize_t>(sizeof evenement + evenement.len);
  }
  ::close(guet);
  EXPECT_EQ(ecritures, 1);
}

TEST_F(MagasinSurDisque, LeavesNothingBesideTheFile) {
  MagasinFichier magasin(Fichier_);
  for (qint64 i = 1; i < 5; ++i) EcritGeneration(magasin, i);
  EXPECT_EQ(QDir(QFileInfo(Fichier_).absolutePath()).entryList(QDir::Files | QDir::Hidden),
            QStringList{"settings.ini"});
}

TEST_F(MagasinSurDisque, StampsASaveWithALaterMillisecondThanTheOneBefore) {
  // Readers know a new file by size and time only, and a file system gives two quick saves the same time. A time that
  // lies ahead stands for the clock that has not moved on.
  MagasinFichier magasin(Fichier_);
  EcritGeneration(magasin, 1);
  const QDateTime avant = QDateTime::fromMSecsSinceEpoch(QDateTime::currentMSecsSinceEpoch() + 3'600'000);
  {
    QFile fichier(Fichier_);
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
    ASSERT_TRUE(fichier.setFileTime(avant, QFileDevice::FileModificationTime));
  }
  EcritGeneration(magasin, 1);
  EXPECT_EQ(QFileInfo(Fichier_).lastModified(), avant.addMSecs(1));
}

TEST_F(MagasinSurDisque, KeepsKeysOfOthersAndChangesOfOthers) {
  Pose("[My tool]\nA key=\"x\"\n[FTP]\nuser=\"old\"\n");
  MagasinFichier magasin(Fichier_);
  Pose("[My tool]\nA key=\"changed\"\n[FTP]\nuser=\"old\"\n");
  magasin.EcritReglage("FTP", "user", "new");
  magasin.Vide();
  EXPECT_EQ(LitTexteReglages(Contenu()).Valeurs, ValeursReglages({{"My tool/A key", "changed"}, {"FTP/user", "new"}}));
}

TEST_F(MagasinSurDisque, OpensAFileOfGarbageWithDefaultsAndKeepsACopyOfIt) {
  QByteArray ordures;
  for (int i = 0; i < 5000; ++i) ordures += static_cast<char>(i * 7919 >> 3);
  Pose(ordures);
  MagasinFichier magasin(Fichier_);
  EXPECT_EQ(magasin.LitReglage("general", "retard", "10"), "10");
  EcritGeneration(magasin, 3);
  EXPECT_EQ(LitGeneration(MagasinFichier(Fichier_)), 3);
  EXPECT_EQ(Contenu(".damaged"), ordures);
  EXPECT_EQ(Mode(Fichier_ + ".damaged"), 0600);
}

TEST_F(MagasinSurDisque, WritesNothingOverADamagedFileThatCannotBeCopied) {
  const QByteArray ordures = "garbage\n[MAIL]\nsujet=\"kept\"\n";
  Pose(ordures);
  ASSERT_TRUE(QDir().mkdir(Fichier_ + ".damaged"));
  MagasinFichier magasin(Fichier_);
  for (int essai = 0; essai < 2; ++essai) {
    try {
      EcritGeneration(magasin, 3);
      ADD_FAILURE() << "saved";
    } catch (const Echec& echec) {
      EXPECT_TRUE(echec.Description().contains(".damaged: ")) << echec.what();
    }
    EXPECT_EQ(Contenu(), ordures);
    EXPECT_FALSE(QFile::exists(Fichier_ + ".damaged.new"));
  }
  ASSERT_TRUE(QDir().rmdir(Fichier_ + ".damaged"));
  magasin.Vide();
  EXPECT_EQ(LitGeneration(MagasinFichier(Fichier_)), 3);
  EXPECT_EQ(Contenu(".damaged"), ordures);
}

TEST_F(MagasinSurDisque, KeepsTheGoodValuesOfADamagedFile) {
  Pose("\x01\x02garbage\n[MAIL]\nsujet=\"kept\"\ncorp=\"first\nsecond\"\n[SO\nindex=\"2\"\n[FTP]\nuser=u,v\n");
  MagasinFichier magasin(Fichier_);
  EXPECT_EQ(magasin.LitReglage("MAIL", "sujet", ""), "kept");
  EXPECT_EQ(magasin.LitReglage("MAIL", "corp", ""), "first");
  EXPECT_EQ(magasin.LitReglage("SON", "index", "0"), "0");
  EXPECT_EQ(magasin.LitReglage("FTP", "user", ""), "u,v");
  magasin.EcritReglage("SON", "index", "1");
  magasin.Vide();
  EXPECT_EQ(LitTexteReglages(Contenu()).Valeurs,
            ValeursReglages({{"MAIL/sujet", "kept"}, {"MAIL/corp", "first"}, {"FTP/user", "u,v"}, {"SON/index", "1"}}));
}

TEST_F(MagasinSurDisque, SaysWhatOfItWasDamagedAlsoWhenItHasBeenWrittenAnew) {
  const QByteArray coupe = "\x01\x02garbage\n[MAIL]\nsujet=\"kept\"\ncorp=\"cut sh";
  Pose(coupe);
  MagasinFichier magasin(Fichier_);
  magasin.EcritReglage("SON", "index", "1");
  magasin.Vide();
  EXPECT_EQ(magasin.Abimes().Lignes, 1);
  EXPECT_EQ(magasin.Abimes().Coupees, QStringList("MAIL/corp"));
  EXPECT_TRUE(MagasinFichier(Fichier_).Abimes().Intact());
  EXPECT_EQ(Contenu(".damaged"), coupe);
}

TEST_F(MagasinSurDisque, KeepsACopyOfAFileThatWasOnlyCutShort) {
  const QByteArray coupe = "[MAIL]\nsujet=\"kept\"\ncorp=\"cut sh";
  Pose(coupe);
  MagasinFichier magasin(Fichier_);
  EXPECT_FALSE(magasin.Abimes().Intact());
  magasin.EcritReglage("SON", "index", "1");
  magasin.Vide();
  EXPECT_EQ(Contenu(".damaged"), coupe);
}

TEST_F(MagasinSurDisque, MakesNoCopyOfAFileThatIsWhole) {
  MagasinFichier(Fichier_).LitReglage("a", "b", "c");
  for (qint64 i = 1; i < 3; ++i) {
    MagasinFichier magasin(Fichier_);
    EcritGeneration(magasin, i);
  }
  EXPECT_EQ(Contenu(".damaged"), "NO FILE");
}

TEST_F(MagasinSurDisque, StandsHalfAMegabyteInOneValueAndAMissingSection) {
  Pose("[MAIL]\ncorp=\"" + QByteArray(qsizetype{512} * 1024, 'z') + "\"\nsujet=\"s\"\n");
  MagasinFichier magasin(Fichier_);
  EXPECT_EQ(magasin.LitReglage("MAIL", "corp", "").size(), qsizetype{512} * 1024);
  EXPECT_EQ(magasin.LitReglage("MAIL", "sujet", ""), "s");
  EXPECT_EQ(magasin.LitReglage("FTP", "refresh", "10"), "10");
  magasin.EcritReglage("FTP", "refresh", "5");
  magasin.Vide();
  EXPECT_EQ(MagasinFichier(Fichier_).LitReglage("MAIL", "corp", "").size(), qsizetype{512} * 1024);
}

TEST_F(MagasinSurDisque, RefusesAFileThatCannotBeReadInsteadOfOverwritingIt) {
  QDir().mkpath(Fichier_);  // a folder in its place
  try {
    const MagasinFichier magasin(Fichier_);
    FAIL();
  } catch (const Echec& echec) {
    EXPECT_EQ(echec.Numero(), kAccesFichier);
    EXPECT_TRUE(echec.Description().startsWith(Fichier_ + ": ")) << echec.what();
  }
}

TEST_F(MagasinSurDisque, TellsWhyItCannotSaveAndSavesLaterWhatWasSet) {
  Pose("[FTP]\nuser=\"old\"\n");
  const QString ecarte = QFileInfo(Fichier_).absolutePath() + "-away";
  MagasinFichier magasin(Fichier_);
  magasin.EcritReglage("FTP", "user", "new");
  ASSERT_TRUE(QDir().rename(QFileInfo(Fichier_).absolutePath(), ecarte));
  QFile obstacle(QFileInfo(Fichier_).absolutePath());
  ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));  // a file where the folder was
  try {
    magasin.Vide();
    FAIL();
  } catch (const Echec& echec) {
    EXPECT_EQ(echec.Numero(), kAccesFichier);
    EXPECT_TRUE(echec.Description().contains("Not a directory")) << echec.what();
  }
  EXPECT_EQ(magasin.LitReglage("FTP", "user", ""), "new");
  ASSERT_TRUE(obstacle.remove());
  ASSERT_TRUE(QDir().rename(ecarte, QFileInfo(Fichier_).absolutePath()));
  magasin.Vide();
  EXPECT_EQ(LitTexteReglages(Contenu()).Valeurs.value("FTP/user"), "new");
}

TEST_F(MagasinSurDisque, TellsOfAnotherProcessThatNeverLetsGo) {
  Pose("");
  const int dossier = ::open(QFile::encodeName(QFileInfo(Fichier_).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(::flock(dossier, LOCK_EX), 0);
  MagasinFichier magasin(Fichier_);
  EXPECT_THROW(EcritGeneration(magasin, 1), Echec);
  ::close(dossier);
  EcritGeneration(magasin, 1);
  EXPECT_EQ(LitGeneration(MagasinFichier(Fichier_)), 1);
}

TEST_F(MagasinSurDisque, NamesItsPlaceForMessages) { EXPECT_EQ(MagasinFichier(Fichier_).Emplacement(), Fichier_); }

}  // namespace
}  // namespace vaktor
