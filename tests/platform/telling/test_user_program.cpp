// SPDX-License-Identifier: GPL-3.0-or-later
// The real thing, with scripts of the test in the place of the user's program.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/telling/user_program.h"

namespace vaktor {
namespace {

class ProgrammeDeLUtilisateur : public testing::Test {
 protected:
  void Pose(const QByteArray& script,
            QFile::Permissions droits = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner) {
    QFile fichier(Chemin());
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write("#!/bin/sh\n" + script);
    fichier.close();
    ASSERT_TRUE(fichier.setPermissions(droits));
  }
  QString Chemin() const { return Dossier_.filePath(QStringLiteral("alarme")); }
  QString Fichier(const char* nom) const { return Dossier_.filePath(QLatin1String(nom)); }
  static QString Lit(const QString& chemin) {
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()) : QString();
  }
  QString Journal() const { return Lit(Fichier("alarme.log")); }
  bool AttendJournal(const QString& mots) const {
    return QTest::qWaitFor([&] { return Journal().contains(mots); }, 30'000);
  }
  ProgrammePersonnelSysteme Cree(DelaisProgramme delais = {}) {
    return ProgrammePersonnelSysteme(Chemin(), Dossier_.path(), delais);
  }

  QTemporaryDir Dossier_;
};

TEST_F(ProgrammeDeLUtilisateur, GetsItsArgumentsAsTheyAreAndNoShellReadsThem) {
  Pose("for a; do printf '<%s>\\n' \"$a\"; done; pwd; cat; echo oops >&2; exit 3\n");
  auto programme = Cree();
  programme.Lance({QStringLiteral("/p/2020-01-02  09-05-03 Photo 1.jpg"), QString::fromUtf8("$(id) `id` ; é \"'")});
  ASSERT_TRUE(AttendJournal(QStringLiteral("ended, status 3"))) << Journal().toStdString();
  const QString journal = Journal();
  EXPECT_TRUE(journal.contains(QStringLiteral("started, arguments: 2\n"))) << journal.toStdString();
  EXPECT_TRUE(journal.contains(QStringLiteral("| </p/2020-01-02  09-05-03 Photo 1.jpg>\n"))) << journal.toStdString();
  EXPECT_TRUE(journal.contains(QString::fromUtf8("| <$(id) `id` ; é \"'>\n"))) << journal.toStdString();
  EXPECT_TRUE(journal.contains(QStringLiteral("| ") + QDir(Dossier_.path()).canonicalPath() + u'\n'));
  EXPECT_TRUE(journal.contains(QStringLiteral("| oops\n"))) << "what it complains of counts too";
  EXPECT_EQ(QFile(Fichier("alarme.log")).permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
}

TEST_F(ProgrammeDeLUtilisateur, IsNotWaitedFor) {
  Pose("sleep 3; echo late\n");
  auto programme = Cree();
  QElapsedTimer temps;
  temps.start();
  programme.Lance({});
  EXPECT_LT(temps.elapsed(), 2500);
  EXPECT_TRUE(AttendJournal(QStringLiteral("| late")));
}

TEST_F(ProgrammeDeLUtilisateur, IsAskedToEndWhenItsTimeIsOverWithWhatItHasStarted) {
  // The shell waits for its child before it hears the signal itself: that child has to hear it too.
  Pose("trap 'echo off; exit 7' TERM; echo on; sleep 600\n");
  auto programme = Cree({.Delai = 300, .Grace = 60'000});
  programme.Lance({});
  ASSERT_TRUE(AttendJournal(QStringLiteral("ended, status 7"))) << Journal().toStdString();
  EXPECT_TRUE(Journal().contains(QStringLiteral("asked to end: it takes too long"))) << Journal().toStdString();
  EXPECT_TRUE(Journal().contains(QStringLiteral("| off\n")));
}

TEST_F(ProgrammeDeLUtilisateur, IsEndedByForceWhenItDoesNotListen) {
  Pose("trap '' TERM; while :; do sleep 1; done\n");
  auto programme = Cree({.Delai = 100, .Grace = 300});
  programme.Lance({});
  EXPECT_TRUE(AttendJournal(QStringLiteral("ended by signal 9"))) << Journal().toStdString();
}

TEST_F(ProgrammeDeLUtilisateur, MayPrintWithoutEndAndFillsNoDisk) {
  Pose("i=0; while [ $i -lt 4000 ]; do echo 0123456789012345678901234567890123456789; i=$((i+1)); done; exit 5\n");
  auto programme = Cree();
  programme.Lance({});
  ASSERT_TRUE(AttendJournal(QStringLiteral("ended, status 5"))) << "a full pipe would have held it up";
  // Each line of ours carries date and time.
  EXPECT_LT(QFile(Fichier("alarme.log")).size(), 3 * ProgrammePersonnelSysteme::kSortieMax);
  EXPECT_GT(Journal().count(QStringLiteral("| 0123456789")), 300);
}

TEST_F(ProgrammeDeLUtilisateur, HasNoneOfOurOpenFiles) {
  Pose("for f in /proc/$$/fd/*; do readlink \"$f\"; done; exit 0\n");
  QFile secret(Fichier("secret"));
  ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
  const int herite = ::dup(secret.handle());  // without O_CLOEXEC, as libraries open cameras
  auto programme = Cree();
  programme.Lance({});
  ASSERT_TRUE(AttendJournal(QStringLiteral("ended, status 0")));
  ::close(herite);
  EXPECT_TRUE(Journal().contains(QStringLiteral("/dev/null"))) << "its input" << Journal().toStdString();
  EXPECT_FALSE(Journal().contains(QStringLiteral("secret"))) << Journal().toStdString();
}

TEST_F(ProgrammeDeLUtilisateur, IsNotStartedWhenItIsNotExecutableOrOthersMayWriteIt) {
  Pose("echo ran\n", QFile::ReadOwner | QFile::WriteOwner);
  auto programme = Cree();
  programme.Lance({});
  EXPECT_TRUE(AttendJournal(QStringLiteral("not started: the file is not executable")));
  QFile(Chemin()).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::WriteOther);
  programme.Lance({});
  EXPECT_TRUE(AttendJournal(QStringLiteral("not started: others may write the file")));
  EXPECT_FALSE(Journal().contains(QStringLiteral("ran")));
}

TEST_F(ProgrammeDeLUtilisateur, ThatIsNotThereIsNothingToTell) {
  auto programme = Cree();
  programme.Lance({QStringLiteral("x")});
  QTest::qWait(300);
  EXPECT_TRUE(QDir(Dossier_.path()).isEmpty());
}

// A whole process of its own, killed in the middle.
TEST_F(ProgrammeDeLUtilisateur, IsAskedToEndWhenVaktorIsKilled) {
  const QByteArray marque = QFile::encodeName(Fichier("off"));
  Pose("trap 'touch " + marque + "; exit' TERM; touch " + QFile::encodeName(Fichier("on")) + "; sleep 20 & wait\n");
  const pid_t vaktor = ::fork();
  if (vaktor == 0) {
    auto programme = Cree();
    programme.Lance({});
    ::pause();
    ::_exit(0);
  }
  EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(Fichier("on")); }, 30'000));
  ::kill(vaktor, SIGKILL);
  ::waitpid(vaktor, nullptr, 0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(Fichier("off")); }, 15'000));
}

}  // namespace
}  // namespace vaktor
