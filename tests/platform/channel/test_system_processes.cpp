// SPDX-License-Identifier: GPL-3.0-or-later
// Real processes: found, ended politely and by force, started.
#include <sys/wait.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <atomic>
#include <cerrno>
#include <thread>

#include "companions/contract/command_words.h"
#include "platform/channel/followed_program.h"
#include "platform/channel/system_processes_bench.h"
#include "support/dead_folder.h"

namespace vaktor::essai {
namespace {

TEST_F(Systeme, APoliteRequestIsEnoughForMost) {
  QProcess programme;
  programme.start(EcritScript(Nom, "trap 'exit 7' TERM; echo pret; while :; do sleep 0.01; done\n"), {});
  ASSERT_TRUE(programme.waitForReadyRead());
  EXPECT_TRUE(Processus.TermineProcessus(*Trouve(programme.processId())));
  ASSERT_TRUE(programme.waitForFinished());
  EXPECT_EQ(programme.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(programme.exitCode(), 7) << "it could tidy up";
}

TEST_F(Systeme, OneThatIgnoresTheRequestIsEndedByForce) {
  QProcess programme;
  programme.start(EcritScript(Nom, "trap '' TERM; echo pret; while :; do sleep 0.01; done\n"), {});
  ASSERT_TRUE(programme.waitForReadyRead());
  EXPECT_TRUE(Processus.TermineProcessus(*Trouve(programme.processId())));
  ASSERT_TRUE(programme.waitForFinished());
  EXPECT_EQ(programme.exitStatus(), QProcess::CrashExit);
}

// Its server has the mail, and has not answered yet: who ends it now sends that mail a second time.
TEST_F(Systeme, AMailCompanionThatIsSendingIsLeftItsTimeAndHoldsNothingUp) {
  QProcess programme;
  programme.start(
      EcritScript(Nom + "VAKTORmail", "trap 'sleep 1; exit 7' TERM; echo pret; while :; do sleep 0.01; done\n"), {});
  ASSERT_TRUE(programme.waitForReadyRead());
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_FALSE(Processus.TermineProcessus(*Trouve(programme.processId())));
  EXPECT_LT(depuis.elapsed(), 900);
  ASSERT_TRUE(AttendQue([&] { return programme.state() == QProcess::NotRunning; }));
  EXPECT_EQ(programme.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(programme.exitCode(), 7);
}

TEST_F(Systeme, AMailCompanionThatDoesNotEndIsEndedByForceLater) {
  ProcessusSysteme pressee(QString(), 500);
  QProcess programme;
  programme.start(EcritScript(Nom + "VAKTORmail", "trap '' TERM; echo pret; while :; do sleep 0.01; done\n"), {});
  ASSERT_TRUE(programme.waitForReadyRead());
  EXPECT_FALSE(pressee.TermineProcessus(*Trouve(programme.processId())));
  ASSERT_TRUE(AttendQue([&] { return programme.state() == QProcess::NotRunning; }));
  EXPECT_EQ(programme.exitStatus(), QProcess::CrashExit);
}

TEST_F(Systeme, ACompanionIsToldOfAFolderOfSocketsThatIsNotTheUsualOne) {
  EXPECT_FALSE(DonneMilieuCompagnon(QString()).contains(kVariableCanal));
  const QByteArray avant = qgetenv("XDG_RUNTIME_DIR");
  qputenv("XDG_RUNTIME_DIR", "/dev/null");
  EXPECT_TRUE(DonneMilieuCompagnon(QString()).value(kVariableCanal).endsWith("/vaktor/canal"));
  avant.isEmpty() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", avant);
}

TEST_F(Systeme, AStoppedProcessIsEndedToo) {
  QProcess programme;
  programme.start(CopieProgramme("/bin/sleep", Nom + "sleep"), {"1000"});
  ASSERT_TRUE(programme.waitForStarted());
  const auto vu = Trouve(programme.processId());
  ASSERT_TRUE(vu);
  ASSERT_TRUE(Arrete(programme.processId()));
  EXPECT_TRUE(Processus.TermineProcessus(*vu));
  EXPECT_TRUE(programme.waitForFinished());
  EXPECT_EQ(programme.exitCode(), SIGTERM) << "it heard the polite request: force was not needed";
}

TEST_F(Systeme, ANumberThatAnotherProgramHasNowIsLeftAlone) {
  QProcess programme;
  programme.start(CopieProgramme("/bin/sleep", Nom + "sleep"), {"1000"});
  ASSERT_TRUE(programme.waitForStarted());
  const ProcessusVu ancien{static_cast<qint32>(programme.processId()), "VAKTORftp", "VAKTORftp"};
  EXPECT_TRUE(Processus.TermineProcessus(ancien)) << "the one that is meant has gone";
  EXPECT_TRUE(Trouve(programme.processId()));
  programme.kill();
  programme.waitForFinished();
  EXPECT_TRUE(Processus.TermineProcessus(ancien)) << "a number that nobody has";
}

TEST_F(Systeme, ItNeverEndsItself) {
  EXPECT_FALSE(Processus.TermineProcessus({::getpid(), "x", "x"}));
  EXPECT_FALSE(Processus.TermineProcessus({0, "", ""}));
  EXPECT_FALSE(Processus.TermineProcessus({-1, "", ""}));
}

TEST_F(Systeme, AMissingOrUselessProgramIsNotStarted) {
  EXPECT_FALSE(Demarre(Processus, Temporaire.filePath("absent")));
  EXPECT_FALSE(Demarre(Processus, Temporaire.path()));
  QFile texte(Temporaire.filePath("texte"));
  ASSERT_TRUE(texte.open(QIODevice::WriteOnly));
  EXPECT_FALSE(Demarre(Processus, texte.fileName()));
}

TEST_F(Systeme, AFileThatTheSystemCannotRunIsNotStarted) {
  QFile faux(Temporaire.filePath("faux"));
  ASSERT_TRUE(faux.open(QIODevice::WriteOnly));
  faux.write(
      "\x7f"
      "ELFxx");
  faux.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  faux.close();
  EXPECT_FALSE(Demarre(Processus, faux.fileName()));
}

TEST_F(Systeme, AProgramIsStartedWithoutArgumentsAndToldItsPrivateFolder) {
  const QString dossier = Temporaire.filePath("prive");
  ProcessusSysteme prive(dossier);
  const QString trace = Temporaire.filePath("trace");
  const QString script =
      EcritScript(Nom, "echo \"$#|$VAKTOR_DOSSIER|$(pwd)\" > " + QFile::encodeName(trace) + ".x; mv " +
                           QFile::encodeName(trace) + ".x " + QFile::encodeName(trace) + "\n");
  ASSERT_TRUE(Demarre(prive, script));
  ASSERT_TRUE(AttendQue([&trace] { return QFile::exists(trace); }));
  QFile lu(trace);
  ASSERT_TRUE(lu.open(QIODevice::ReadOnly));
  EXPECT_EQ(lu.readAll().trimmed(), QFile::encodeName("0|" + dossier + "|" + Temporaire.path()));
}

/// A program that is started and followed, and what is told of it.
struct Suivi : Systeme {
  int Fins = 0;
  /// `avant` is run before it tells its number.
  std::unique_ptr<ProgrammeSuivi> Lance(const QByteArray& corps, const QByteArray& avant = {}, bool relance = false) {
    const QString script = EcritScript(Nom, avant + "\necho $$ > pid.x; mv pid.x pid\n" + corps);
    return Processus.LanceSuivi({.Chemin = script, .Relance = relance}, [this] { ++Fins; });
  }
  qint32 AttendPid() const {
    const QString trace = Temporaire.filePath("pid");
    EXPECT_TRUE(AttendQue([&trace] { return QFile::exists(trace); }));
    QFile lu(trace);
    return lu.open(QIODevice::ReadOnly) ? lu.readAll().trimmed().toInt() : 0;
  }
  void TearDown() override {
    const qint32 pid = AttendPid();
    if (Trouve(pid)) ::kill(pid, SIGKILL);
  }
};

TEST_F(Suivi, AnEndByForceIsToldOnce) {
  const auto programme = Lance("while :; do sleep 0.05; done\n");
  ASSERT_TRUE(programme);
  const qint32 pid = AttendPid();
  QCoreApplication::processEvents();
  EXPECT_EQ(Fins, 0);
  ASSERT_EQ(::kill(pid, SIGKILL), 0);
  ASSERT_TRUE(AttendQue([this] { return Fins > 0; }));
  for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(Fins, 1);
}

TEST_F(Suivi, OneThatEndsAtOnceIsToldToo) {
  const auto programme = Lance("exit 3\n");
  ASSERT_TRUE(programme);
  EXPECT_EQ(Fins, 0) << "from the event loop and not before";
  EXPECT_TRUE(AttendQue([this] { return Fins == 1; }));
}

TEST_F(Suivi, OneThatHadGoneBeforeAnybodyTookHoldOfItIsTold) {
  EcritScript("pid", "");
  const pid_t enfant = ::fork();
  ASSERT_GE(enfant, 0);
  if (enfant == 0) ::_exit(0);
  ::waitpid(enfant, nullptr, 0);
  const ProgrammeSuiviSysteme programme(enfant, [this] { ++Fins; });
  EXPECT_EQ(Fins, 0);
  EXPECT_TRUE(AttendQue([this] { return Fins == 1; }));
}

TEST_F(Suivi, AStoppedOneHearsTheRequest) {
  const auto programme = Lance("while :; do sleep 0.05; done\n", "trap 'exit 0' TERM");
  ASSERT_TRUE(programme);
  ASSERT_TRUE(Arrete(AttendPid()));
  programme->DemandeFin();
  EXPECT_TRUE(AttendQue([this] { return Fins == 1; }));
}

TEST_F(Suivi, OneThatIgnoresTheRequestIsEndedByForce) {
  const auto programme = Lance("while :; do sleep 0.05; done\n", "trap '' TERM");
  ASSERT_TRUE(programme);
  const qint32 pid = AttendPid();
  programme->DemandeFin();
  EXPECT_TRUE(Trouve(pid));
  programme->Tue();
  EXPECT_TRUE(AttendQue([this] { return Fins == 1; }));
}

TEST_F(Suivi, OneThatIsNotFollowedAnyMoreRunsOnAndIsNotTold) {
  auto programme = Lance("while :; do sleep 0.05; done\n");
  ASSERT_TRUE(programme);
  const qint32 pid = AttendPid();
  programme.reset();
  EXPECT_TRUE(Trouve(pid));
  ::kill(pid, SIGKILL);
  ASSERT_TRUE(AttendQue([&] { return !Trouve(pid); }));
  EXPECT_EQ(Fins, 0);
}

TEST_F(Suivi, TheWordOfTheEndMayTakeTheObjectAway) {
  std::unique_ptr<ProgrammeSuivi> programme;
  programme = Processus.LanceSuivi({.Chemin = EcritScript(Nom, "echo $$ > pid\n")}, [&] {
    programme.reset();
    ++Fins;
  });
  ASSERT_TRUE(programme);
  EXPECT_TRUE(AttendQue([this] { return Fins == 1; }));
  EXPECT_FALSE(programme);
}

/// No descriptor left, a system that does not know them or forbids them: it says nothing of the program.
struct SansPrise : Suivi {
  std::unique_ptr<ProgrammeSuivi> SuitSans(int erreur) {
    static int pourquoi = 0;
    pourquoi = erreur;
    return std::make_unique<ProgrammeSuiviSysteme>(
        AttendPid(), [this] { ++Fins; },
        [](qint32) {
          errno = pourquoi;
          return -1;
        });
  }
  static void Laisse(int millisecondes) {
    QElapsedTimer temps;
    temps.start();
    AttendQue([&] { return temps.elapsed() >= millisecondes; });
  }
};

TEST_F(SansPrise, OneThatRunsHasNotEndedAndItsEndIsToldOnce) {
  for (const int erreur : {EMFILE, ENOSYS, EPERM}) {
    QFile::remove(Temporaire.filePath("pid"));
    Fins = 0;
    Lance("while :; do sleep 0.05; done\n").reset();
    const auto programme = SuitSans(erreur);
    Laisse(ProgrammeSuiviSysteme::kRegard * 3 / 2);
    EXPECT_EQ(Fins, 0) << erreur;
    ASSERT_EQ(::kill(AttendPid(), SIGKILL), 0);
    EXPECT_TRUE(AttendQue([this] { return Fins > 0; })) << erreur;
    Laisse(ProgrammeSuiviSysteme::kRegard * 3 / 2);
    EXPECT_EQ(Fins, 1) << erreur;
  }
}

TEST_F(SansPrise, ItHearsTheRequestAndIsEndedByForce) {
  for (const bool force : {false, true}) {
    QFile::remove(Temporaire.filePath("pid"));
    Fins = 0;
    Lance(force ? "while :; do sleep 0.05; done\n" : "kill -STOP $$\nwhile :; do sleep 0.05; done\n",
          force ? "trap '' TERM" : "")
        .reset();
    const auto programme = SuitSans(EMFILE);
    programme->DemandeFin();
    if (force) {
      Laisse(ProgrammeSuiviSysteme::kRegard * 3 / 2);
      EXPECT_EQ(Fins, 0);
      programme->Tue();
    }
    EXPECT_TRUE(AttendQue([this] { return Fins == 1; })) << force;
  }
}

// Neither a stray signal to somebody else nor a companion that is waited for in the life of another program.
// Libraries open cameras without saying that a program which is started is not to have them: a companion that lives on
// would keep the camera from everybody.
TEST_F(Systeme, AProgramThatIsStartedHasNoneOfOurOpenFiles) {
  QFile camera(Temporaire.filePath("camera"));
  ASSERT_TRUE(camera.open(QIODevice::WriteOnly));
  const int sansMarque = ::dup(camera.handle());
  const QString liste = Temporaire.filePath("liste");
  const QByteArray cible = QFile::encodeName(liste);
  ASSERT_TRUE(Demarre(Processus, EcritScript(Nom + "fd", "ls -l /proc/$$/fd > " + cible + ".part; mv " + cible +
                                                             ".part " + cible + "\n")));
  ASSERT_TRUE(AttendQue([&] { return QFile::exists(liste); }));
  ::close(sansMarque);
  QFile lue(liste);
  ASSERT_TRUE(lue.open(QIODevice::ReadOnly));
  const QByteArray fichiers = lue.readAll();
  EXPECT_TRUE(fichiers.contains("/dev/null")) << "its input: " << fichiers.toStdString();
  EXPECT_FALSE(fichiers.contains("camera")) << fichiers.toStdString();
}

TEST(PidSansPrise, ANumberThatSomebodyElseHasNowIsNeitherFollowedNorHit) {
  PidSansPrise moi(::getpid());
  EXPECT_FALSE(moi.AFini());
  PidSansPrise ancien(::getpid(), "1");
  EXPECT_TRUE(ancien.AFini());
  ancien.Envoie(SIGKILL);
}

TEST(PidSansPrise, OneThatHasEndedAndWasNotFetchedByItsParentHasEnded) {
  const pid_t pid = ::fork();
  if (pid == 0) ::_exit(0);
  PidSansPrise sien(pid);
  EXPECT_TRUE(AttendQue([&sien] { return sien.AFini(); }));
  ::waitpid(pid, nullptr, 0);
}

TEST_F(Suivi, OnlyOneThatIsStartedAgainFindsThatInItsEnvironment) {
  ::setenv(kVariableRelance.data(), "1", 1);  // of whoever has started this program, and not its companions' affair
  for (const bool relance : {false, true}) {
    const QString trace = Temporaire.filePath("relance");
    QFile::remove(trace);
    const auto programme = Lance("echo \"<$VAKTOR_RELANCE>\" > r.x; mv r.x relance\n", {}, relance);
    ASSERT_TRUE(programme);
    ASSERT_TRUE(AttendQue([&trace] { return QFile::exists(trace); }));
    QFile lu(trace);
    ASSERT_TRUE(lu.open(QIODevice::ReadOnly));
    EXPECT_EQ(lu.readAll().trimmed(), relance ? "<1>" : "<>");
  }
  ::unsetenv(kVariableRelance.data());
}

TEST_F(Suivi, AMissingProgramIsNotStarted) {
  EcritScript("pid", "");
  EXPECT_FALSE(Processus.LanceSuivi({.Chemin = Temporaire.filePath("absent")}, [this] { ++Fins; }));
}

TEST_F(Systeme, RunsWithPrivateFoldersDoNotSeeEachOther) {
  const ProcessusSysteme a(Temporaire.filePath("a"));
  const ProcessusSysteme b(Temporaire.filePath("b"));
  QProcess programme;
  QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
  milieu.insert(kVariableDossier, Temporaire.filePath("a"));
  programme.setProcessEnvironment(milieu);
  programme.start("/bin/sleep", {"1000"});
  ASSERT_TRUE(programme.waitForStarted());
  EXPECT_TRUE(Trouve(a, programme.processId()));
  EXPECT_FALSE(Trouve(b, programme.processId()));
  EXPECT_FALSE(Trouve(programme.processId()));
  programme.kill();
  programme.waitForFinished();
  programme.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
  programme.start("/bin/sleep", {"1000"});
  ASSERT_TRUE(programme.waitForStarted());
  EXPECT_TRUE(Trouve(programme.processId()));
  EXPECT_FALSE(Trouve(b, programme.processId())) << "a demonstration must not end the companions of the user's watch";
  programme.kill();
  programme.waitForFinished();
}

TEST_F(Systeme, AProgramOnADiskThatDoesNotAnswerCountsAsMissingAndHoldsNobody) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  // Whoever waits for that disk is let go in the end, so that this test fails and does not hang.
  std::atomic<bool> fini = false;
  std::thread reveil([&] {
    for (int i = 0; i < 250 && !fini; ++i) QThread::msleep(100);
    mort.Reveille();
  });
  QElapsedTimer temps;
  temps.start();
  EXPECT_FALSE(Processus.LanceSuivi({.Chemin = mort.Chemin("/VAKTORsound"), .Relance = true}, [] {}));
  EXPECT_LT(temps.elapsed(), 4000);
  temps.start();
  EXPECT_FALSE(Demarre(*std::make_unique<ProcessusSysteme>(), mort.Chemin("/VAKTORsound")));
  EXPECT_GE(temps.elapsed(), 4000) << "at a login the disk is busy, and a start is not made again";
  EXPECT_LT(temps.elapsed(), 12'000);
  fini = true;
  reveil.join();
}

}  // namespace
}  // namespace vaktor::essai
