// SPDX-License-Identifier: GPL-3.0-or-later
// The journal's file on real disks.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <csignal>

#include "journal/journal_entry.h"
#include "platform/journal/journal_file.h"
#include "support/small_disk.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

class JournalFile : public testing::Test {
 protected:
  QString Chemin() const { return Dossier.filePath(QStringLiteral("journal.jsonl")); }
  QByteArray Contenu() const {
    QFile fichier(Chemin());
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
  }
  void Pose(const QByteArray& octets) const {
    QFile fichier(Chemin());
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(octets);
  }
  /// The descriptor that has the lock, until it is closed.
  int Verrouille() const {
    const int verrou = ::open(QFile::encodeName(Chemin()).constData(), O_RDWR | O_CLOEXEC);
    EXPECT_EQ(::flock(verrou, LOCK_EX), 0);
    return verrou;
  }
  /// How many descriptors of this process are onto the journal.
  qsizetype Ouvertures() const {
    qsizetype nombre = 0;
    const QDir descripteurs(QStringLiteral("/proc/self/fd"));
    for (const QString& nom : descripteurs.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot))
      if (QFile::symLinkTarget(descripteurs.filePath(nom)) == QFileInfo(Chemin()).canonicalFilePath()) ++nombre;
    return nombre;
  }
  QTemporaryDir Dossier;
};

TEST_F(JournalFile, AppendsLinesInTheirOrderForTheUserAlone) {
  {
    FichierJournalSysteme fichier(Chemin());
    EXPECT_FALSE(QFile::exists(Chemin()));
    for (int i = 0; i < 50; ++i) fichier.Ajoute(QByteArray::number(i));
  }
  FichierJournalSysteme(Chemin()).Ajoute("last");
  QByteArray voulu;
  for (int i = 0; i < 50; ++i) voulu += QByteArray::number(i) + '\n';
  EXPECT_EQ(Contenu(), voulu + "last\n");
  struct stat etat = {};
  ASSERT_EQ(::stat(QFile::encodeName(Chemin()).constData(), &etat), 0);
  EXPECT_EQ(etat.st_mode & 0777, 0600U);
}

TEST_F(JournalFile, TheSlateIsOneWholeFileForTheUserAloneAndTheNewestCounts) {
  const QString ardoise = Dossier.filePath(QStringLiteral("sub/intrusion.json"));
  {
    FichierJournalSysteme fichier(Dossier.filePath(QStringLiteral("sub/journal.jsonl")));
    for (int i = 0; i < 500; ++i) {
      fichier.MontreArdoise(QByteArray(10'000, 'a') + QByteArray::number(i));
      QFile lue(ardoise);
      if (!lue.open(QIODevice::ReadOnly)) continue;  // the first is not there yet
      EXPECT_GT(lue.readAll().size(), 10'000) << "never half of one";
    }
    fichier.Ajoute("line");
  }
  QFile lue(ardoise);
  ASSERT_TRUE(lue.open(QIODevice::ReadOnly));
  EXPECT_EQ(lue.readAll(), QByteArray(10'000, 'a') + "499");
  EXPECT_EQ(QDir(Dossier.filePath(QStringLiteral("sub"))).entryList(QDir::Files),
            (QStringList{QStringLiteral("intrusion.json"), QStringLiteral("journal.jsonl")}));
  struct stat etat = {};
  ASSERT_EQ(::stat(QFile::encodeName(ardoise).constData(), &etat), 0);
  EXPECT_EQ(etat.st_mode & 0777, 0600U);
}

TEST_F(JournalFile, ASlateThatTheDiskDoesNotTakeLeavesTheLinesAlone) {
  ASSERT_TRUE(QDir(Dossier.path()).mkdir(QStringLiteral("intrusion.json")));
  {
    FichierJournalSysteme fichier(Chemin());
    fichier.MontreArdoise("{}");
    fichier.Ajoute("line");
  }
  EXPECT_EQ(Contenu(), "line\n");
  EXPECT_FALSE(QFile::exists(Dossier.filePath(QStringLiteral("intrusion.json.new"))));
}

TEST_F(JournalFile, ATornLineCostsItselfAlone) {
  Pose("one\ntw");
  FichierJournalSysteme(Chemin()).Ajoute("three");
  EXPECT_EQ(Contenu(), "one\ntw\nthree\n");
}

TEST_F(JournalFile, SurvivesAKillAtAnyMoment) {
  const pid_t fils = ::fork();
  if (fils == 0) {
    FichierJournalSysteme fichier(Chemin());
    for (int i = 0;; ++i) {
      fichier.Ajoute(QByteArray::number(i).rightJustified(200, '.'));
      ::usleep(200);
    }
  }
  ::usleep(300'000);
  ::kill(fils, SIGKILL);
  int fin = 0;
  ::waitpid(fils, &fin, 0);
  FichierJournalSysteme(Chemin()).Ajoute("after");
  const QList<QByteArray> lignes = Contenu().split('\n');
  ASSERT_GT(lignes.size(), 3);
  for (qsizetype i = 0; i + 3 < lignes.size(); ++i)
    EXPECT_EQ(lignes[i], QByteArray::number(i).rightJustified(200, '.'));
  EXPECT_EQ(lignes[lignes.size() - 2], "after");
}

QByteArray Ligne(int jour, int numero, bool autre = false) {
  return EcritLigne({.Quoi = Fait::kVie,
                     .Quand = QDateTime(QDate(2026, 11, jour), QTime(0, 0)).addSecs(numero),
                     .Course = autre ? QStringLiteral("a") : QStringLiteral("b")});
}

TEST_F(JournalFile, TheOldestDaysGoWhenItGrowsTooLarge) {
  FichierJournalSysteme fichier(Chemin(), 6'000, 4'000);
  for (int jour = 1; jour <= 20; ++jour)
    for (int i = 0; i < 15; ++i) fichier.Ajoute(Ligne(jour, i));
  for (int i = 0; i < 600 && !Contenu().contains(Ligne(20, 14)); ++i) ::usleep(50'000);
  const JournalLu lu = LitJournal(Contenu());
  EXPECT_EQ(lu.Illisibles, 0);
  ASSERT_FALSE(lu.Entrees.isEmpty());
  EXPECT_LE(Contenu().size(), 6'200);
  EXPECT_EQ(lu.Entrees.first().Quand.time(), QTime(0, 0)) << "a day goes whole";
  EXPECT_EQ(lu.Entrees.last().Quand.date(), QDate(2026, 11, 20));
  EXPECT_FALSE(QFile::exists(Chemin() + QStringLiteral(".new")));
}

TEST_F(JournalFile, OneThatCannotBeCutGoesOnGrowingAndSaysSo) {
  ASSERT_TRUE(QDir(Dossier.path()).mkdir(QStringLiteral("journal.jsonl.new")));
  Pose(QByteArray(600, 'x') + '\n');
  FichierJournalSysteme fichier(Chemin(), 500, 300);
  fichier.Ajoute("first");
  fichier.Ajoute("second");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Contenu().endsWith("\nsecond\n"); }, 20'000)) << Contenu().toStdString();
  EXPECT_TRUE(Contenu().endsWith("x\nfirst\nsecond\n")) << Contenu().toStdString();
  EXPECT_TRUE(QTest::qWaitFor([&] { return fichier.Erreur() == EEXIST; }, 20'000)) << fichier.Erreur();
}

class JournalSurDisqueVolatil : public SurDisqueVolatil {};

// What could not be read was cut away with the rest: all of the journal, where the bad place was its beginning.
TEST_F(JournalSurDisqueVolatil, OneThatCannotBeReadIsNotCut) {
  const QString chemin = Chemin("/journal.jsonl");
  QFile fichier(chemin);
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.write(QByteArray(600, 'x') + '\n');
  fichier.close();
  ASSERT_TRUE(Disque->DevientIllisible());
  {
    FichierJournalSysteme journal(chemin, 500, 300);
    journal.Ajoute("first");
    EXPECT_TRUE(QTest::qWaitFor([&] { return journal.Erreur() == EIO; }, 20'000)) << journal.Erreur();
  }
  ASSERT_TRUE(Disque->Repond());
  const QByteArray lu = LitFinJournal(chemin);
  EXPECT_EQ(lu.left(601), QByteArray(600, 'x') + '\n');
  EXPECT_TRUE(lu.endsWith("\nfirst\n"));
}

TEST_F(JournalFile, TwoProgramsMayWriteOneFileAndCutIt) {
  constexpr int kLignes = 200;
  bool vu = false;
  const pid_t fils = ::fork();
  {
    FichierJournalSysteme fichier(Chemin(), 8'000, 6'000);
    for (int i = 0; i < kLignes; ++i) {
      fichier.Ajoute(Ligne(1 + i / 50, i, fils == 0));
      ::usleep(200);
    }
    const QByteArray derniere = Ligne(1 + (kLignes - 1) / 50, kLignes - 1, fils == 0) + '\n';
    for (int i = 0; i < 500 && !Contenu().contains(derniere); ++i) ::usleep(20'000);
    vu = Contenu().contains(derniere);
  }
  if (fils == 0) ::_exit(vu ? 0 : 1);
  int fin = 0;
  ::waitpid(fils, &fin, 0);
  EXPECT_EQ(LitJournal(Contenu()).Illisibles, 0) << "each line is whole";
  EXPECT_TRUE(vu);
  EXPECT_EQ(fin, 0) << "the other one has seen its last line too";
}

TEST_F(JournalFile, WhatCannotBeWrittenIsLostAndTold) {
  {
    QFile place(Dossier.filePath(QStringLiteral("none")));
    ASSERT_TRUE(place.open(QIODevice::WriteOnly));
    place.close();
    FichierJournalSysteme fichier(Dossier.filePath(QStringLiteral("none/journal.jsonl")));
    EXPECT_EQ(fichier.Erreur(), 0);
    fichier.Ajoute("x");
    for (int i = 0; i < 100 && fichier.Erreur() == 0; ++i) ::usleep(20'000);
    EXPECT_EQ(fichier.Erreur(), ENOTDIR);
    ASSERT_TRUE(place.remove());
    fichier.Ajoute("y");
    for (int i = 0; i < 100 && fichier.Erreur() != 0; ++i) ::usleep(20'000);
    EXPECT_EQ(fichier.Erreur(), 0) << "the disk takes lines again";
  }
  ASSERT_EQ(::mkfifo(QFile::encodeName(Chemin()).constData(), 0600), 0);
  const int lecteur = ::open(QFile::encodeName(Chemin()).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  FichierJournalSysteme fichier(Chemin());
  fichier.Ajoute("x");
  for (int i = 0; i < 100 && fichier.Erreur() == 0; ++i) ::usleep(20'000);
  EXPECT_EQ(fichier.Erreur(), EINVAL) << "a pipe is no journal, and nobody waits at it";
  char octet = 0;
  EXPECT_NE(::read(lecteur, &octet, 1), 1) << "nor is anything written into it";
  ::close(lecteur);
  EXPECT_TRUE(LitFinJournal(Chemin()).isEmpty());
}

TEST_F(JournalFile, ALinkIsNotFollowed) {
  const QString cible = Dossier.filePath(QStringLiteral("target"));
  ASSERT_TRUE(QFile::link(cible, Chemin()));
  FichierJournalSysteme fichier(Chemin());
  fichier.Ajoute("x");
  for (int i = 0; i < 100 && fichier.Erreur() == 0; ++i) ::usleep(20'000);
  EXPECT_EQ(fichier.Erreur(), ELOOP);
  EXPECT_FALSE(QFile::exists(cible));
}

// Another program that writes or cuts: what holds the lock here might be one. A second descriptor onto the file says
// that the line has come as far as the lock.
TEST_F(JournalFile, NothingIsWrittenWhileAnotherProgramHasTheLock) {
  Pose("one\n");
  const int verrou = Verrouille();
  FichierJournalSysteme fichier(Chemin());
  fichier.Ajoute("two");
  for (int i = 0; i < 500 && Ouvertures() < 2; ++i) ::usleep(20'000);
  ASSERT_EQ(Ouvertures(), 2);
  ::usleep(200'000);
  EXPECT_EQ(Contenu(), "one\n");
  ::close(verrou);
  for (int i = 0; i < 500 && Contenu() != "one\ntwo\n"; ++i) ::usleep(20'000);
  EXPECT_EQ(Contenu(), "one\ntwo\n");
}

TEST_F(JournalFile, ALineGoesToTheFileThatHasTakenThePlaceOfTheLockedOne) {
  Pose("old\n");
  const int verrou = Verrouille();
  FichierJournalSysteme fichier(Chemin());
  fichier.Ajoute("line");
  for (int i = 0; i < 500 && Ouvertures() < 2; ++i) ::usleep(20'000);
  ASSERT_EQ(Ouvertures(), 2);
  ASSERT_EQ(::rename(QFile::encodeName(Chemin()).constData(), QFile::encodeName(Chemin() + u'~').constData()), 0);
  Pose("new\n");
  ::close(verrou);
  for (int i = 0; i < 500 && Contenu() != "new\nline\n"; ++i) ::usleep(20'000);
  EXPECT_EQ(Contenu(), "new\nline\n");
}

// A lock that somebody holds is a disk that hangs.
TEST_F(JournalFile, ADiskThatHangsKeepsSomeLinesAndHoldsUpNobodyNotEvenTheEnd) {
  const int verrou = ::open(QFile::encodeName(Chemin()).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_EQ(::flock(verrou, LOCK_EX), 0);
  constexpr int kLignes = static_cast<int>(FichierJournalSysteme::kLignesEnAttente);
  QElapsedTimer temps;
  {
    FichierJournalSysteme fichier(Chemin());
    for (int i = 0; i < kLignes; ++i) fichier.Ajoute(QByteArray::number(i));
    EXPECT_EQ(fichier.Erreur(), 0);
    for (int i = 0; i < 100; ++i) fichier.Ajoute("lost");
    EXPECT_EQ(fichier.Erreur(), ETIMEDOUT);
    temps.start();
  }
  EXPECT_LT(temps.elapsed(), 20'000);
  ::close(verrou);
  // The thread was left behind; what it had it writes.
  for (int i = 0; i < 1500 && Contenu().count('\n') < kLignes; ++i) ::usleep(20'000);
  EXPECT_GE(Contenu().count('\n'), kLignes);
  EXPECT_LE(Contenu().count("lost"), 1) << "one for the line that the thread has in its hands";
}

TEST_F(JournalFile, AFolderThatIsNotThereIsMadeForTheUserAlone) {
  const QString dossier = Dossier.filePath(QStringLiteral("a/state"));
  FichierJournalSysteme(dossier + QStringLiteral("/journal.jsonl")).Ajoute("x");
  EXPECT_EQ(LitFinJournal(dossier + QStringLiteral("/journal.jsonl")), "x\n");
  struct stat etat = {};
  ASSERT_EQ(::stat(QFile::encodeName(dossier).constData(), &etat), 0);
  EXPECT_EQ(etat.st_mode & 0777, 0700U);
}

TEST_F(JournalFile, AFullDiskCostsLinesAndNothingElse) {
  const PetitDisque disque(64 * 1024);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  const QString chemin = disque.Chemin() + QStringLiteral("/journal.jsonl");
  FichierJournalSysteme fichier(chemin);
  for (int i = 0; i < 100; ++i) fichier.Ajoute(QByteArray(1000, 'x'));
  for (int i = 0; i < 100 && fichier.Erreur() == 0; ++i) ::usleep(20'000);
  EXPECT_EQ(fichier.Erreur(), ENOSPC);
}

TEST_F(JournalFile, TheEndIsReadFromItsFirstWholeLineOn) {
  EXPECT_TRUE(LitFinJournal(Chemin()).isEmpty());
  Pose("first line\nsecond line\nthird");
  EXPECT_EQ(LitFinJournal(Chemin()), "first line\nsecond line\nthird");
  EXPECT_EQ(LitFinJournal(Chemin(), 20), "second line\nthird");
  EXPECT_EQ(LitFinJournal(Chemin(), 7), "third");
}

}  // namespace
}  // namespace vaktor
