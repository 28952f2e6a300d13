// SPDX-License-Identifier: GPL-3.0-or-later
// The table of the processes: what is one of our companions, and what merely looks like it.
#include <sys/wait.h>

#include <QProcess>

#include "platform/channel/system_processes_bench.h"

namespace vaktor::essai {
namespace {

TEST_F(Systeme, TheTableNamesProgramsAndScripts) {
  QProcess programme;
  programme.start(CopieProgramme("/bin/sleep", Nom + "sleep"), {"1000"});
  QProcess script;
  script.start(EcritScript(Nom + "sh", "echo pret; read ligne\n"), {});
  ASSERT_TRUE(programme.waitForStarted() && script.waitForReadyRead());
  const auto vu = Trouve(programme.processId());
  ASSERT_TRUE(vu);
  EXPECT_EQ(vu->Nom, Nom + "sleep");
  const auto vuScript = Trouve(script.processId());
  ASSERT_TRUE(vuScript);
  EXPECT_EQ(vuScript->Nom, "bash");
  EXPECT_EQ(vuScript->NomAppele, Nom + "sh");
  programme.kill();
  script.kill();
  programme.waitForFinished();
  script.waitForFinished();
}

TEST_F(Systeme, TheTableTellsARehearsalByItsArgument) {
  for (const auto& [argument, essai] : {std::pair("--try", true), std::pair("--tryst", false), std::pair("", false)}) {
    QProcess script;
    script.start(EcritScript(Nom + "sh", "echo pret; read ligne\n"), {argument});
    ASSERT_TRUE(script.waitForReadyRead());
    const auto vu = Trouve(script.processId());
    ASSERT_TRUE(vu);
    EXPECT_EQ(vu->Essai, essai) << argument;
    script.kill();
    script.waitForFinished();
  }
}

/// One that "env" starts: no name of the system tells what it runs. It is stopped by closing its input.
struct Scripts : Systeme {
  const QString Script = QStringLiteral("VAKTORsound-") + Nom;
  QString Ecrit(const QByteArray& premiereLigne) const {
    QFile fichier(Temporaire.filePath(Script));
    if (!fichier.open(QIODevice::WriteOnly)) return {};
    fichier.write(premiereLigne + "\nprint('pret', flush=True)\nimport sys\nsys.stdin.read()\n");
    fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return fichier.fileName();
  }
  /// What the table says of a process that is started so, once it has said that it runs.
  QString NomDuScript(const QString& programme, const QStringList& arguments) const {
    QProcess processus;
    processus.setWorkingDirectory(Temporaire.path());
    processus.start(programme, arguments);
    if (!processus.waitForReadyRead()) return QStringLiteral("it did not start");
    const auto vu = Trouve(processus.processId());
    processus.kill();
    processus.waitForFinished();
    return vu ? vu->NomScript : QStringLiteral("not in the table");
  }
};

TEST_F(Scripts, AreKnownByTheirOwnNameAlsoWhereEnvStartsThem) {
  for (const char* ligne : {"#!/usr/bin/env python3", "#!/usr/bin/env -S python3 -u", "#! /usr/bin/python3"})
    EXPECT_EQ(NomDuScript(Ecrit(ligne), {}), Script) << ligne;
  EXPECT_EQ(NomDuScript("/usr/bin/python3", {Script}), Script) << "a relative path, from its own folder";
}

TEST_F(Scripts, WhoeverMerelyHasTheNameInAnArgumentIsNoCompanion) {
  const QString script = Ecrit("#!/usr/bin/env python3");
  // An editor, a pager, another script that is given the name, and a command that happens to be called so.
  EXPECT_EQ(NomDuScript("/bin/bash", {"-c", "echo pret; read ligne", script}), "");
  const QString autre = EcritScript(Nom + "outil", "echo pret; read ligne\n");
  EXPECT_EQ(NomDuScript("/bin/bash", {autre, script}), "");
  EXPECT_EQ(NomDuScript("/usr/bin/tail", {"-f", script}), "");
  EXPECT_EQ(NomDuScript("/usr/bin/python3", {"-c", "print('pret',flush=True);input()", script}), "");
}

TEST_F(Systeme, TheTableLeavesOutTheProgramItself) { EXPECT_FALSE(Trouve(::getpid())); }

TEST_F(Systeme, TheTableLeavesOutTheDead) {
  const pid_t enfant = ::fork();
  ASSERT_GE(enfant, 0);
  if (enfant == 0) ::_exit(0);
  siginfo_t fin{};
  ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(enfant), &fin, WEXITED | WNOWAIT), 0);
  EXPECT_FALSE(Trouve(enfant));
  ::waitpid(enfant, nullptr, 0);
}

TEST_F(Systeme, TheTableLeavesOutOtherUsers) {
  if (::getuid() != 0) GTEST_SKIP() << "only root can start a process of somebody else";
  int tube[2];
  ASSERT_EQ(::pipe(tube), 0);
  const pid_t etranger = ::fork();
  ASSERT_GE(etranger, 0);
  if (etranger == 0) {
    if (::setuid(65534) != 0) ::_exit(2);
    if (::write(tube[1], "x", 1) != 1) ::_exit(2);
    ::pause();
    ::_exit(0);
  }
  char pret = 0;
  ASSERT_EQ(::read(tube[0], &pret, 1), 1);
  EXPECT_FALSE(Trouve(etranger));
  ::kill(etranger, SIGKILL);
  ::waitpid(etranger, nullptr, 0);
  ::close(tube[0]);
  ::close(tube[1]);
}

}  // namespace
}  // namespace vaktor::essai
