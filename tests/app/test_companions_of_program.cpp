// SPDX-License-Identifier: GPL-3.0-or-later
// The real main program with its real companions: they come up and register, come back when they are killed, and go
// with it; nothing stays behind.
#include "app/whole_program.h"

namespace vaktor::essai {
namespace {

TEST_F(ProgrammeEntier, ItsCompanionsRegisterAndEndWithItOnTerm) {
  ASSERT_NO_FATAL_FAILURE(LanceEtAttendTous());
  Processus.terminate();
  ExigeFin();
}

TEST_F(ProgrammeEntier, StraysOfAnEarlierRunAreEndedAlsoThoseThatDoNotListen) {
  QProcessEnvironment milieu = Milieu;
  milieu.insert(QStringLiteral("VAKTOR_DOSSIER"), Prive);
  const QString copie = Dossier.filePath(QStringLiteral("VAKTORmail"));
  ASSERT_TRUE(QFile::copy(QStringLiteral("/bin/sleep"), copie));
  QProcess sourd;
  sourd.setProcessEnvironment(milieu);
  sourd.start(QStringLiteral("/bin/sh"),
              {QStringLiteral("-c"), QStringLiteral("trap '' TERM; exec \"$0\" 1000"), copie});
  ASSERT_TRUE(sourd.waitForStarted());
  ASSERT_TRUE(Attend([&] { return Compagnons(QStringLiteral("VAKTORmail")).size() == 1; }));
  Lance();
  ASSERT_TRUE(Attend([this] { return Enregistres(); })) << Processus.readAll().toStdString();
  // A mail companion may have a mail under way: it has sixteen seconds before force ends it.
  EXPECT_TRUE(sourd.waitForFinished(60'000)) << "a stray that ignores the polite request survived";
  EXPECT_TRUE(UnDeChaque());
  Processus.terminate();
  ExigeFin();
}

TEST_F(ProgrammeEntier, AMissingCompanionIsToldOnceAndTheStartHasAStatus) {
  // The executable alone, in a folder of its own.
  const QString seul = Dossier.filePath(QStringLiteral("Vaktor"));
  ASSERT_TRUE(QFile::copy(QStringLiteral(VAKTOR_EXECUTABLE), seul));
  Lance(seul);
  QByteArray dit;
  ASSERT_TRUE(Attend([&] {
    dit += Processus.readAll();
    return dit.contains("VAKTORftp");
  })) << dit.toStdString();
  EXPECT_EQ(dit.count("VAKTORftp"), 1) << dit.toStdString();
  EXPECT_TRUE(dit.contains("introuvable")) << dit.toStdString();
  Processus.terminate();  // stands for the answer to the message box
  ASSERT_TRUE(Processus.waitForFinished(30000));
  EXPECT_EQ(Processus.exitCode(), 1);
}

TEST_F(ProgrammeEntier, EachCompanionThatIsKilledComesBackAndRegisters) {
  ASSERT_NO_FATAL_FAILURE(LanceEtAttendTous());
  for (const QString& nom : kNoms) {
    const qint64 avant = Compagnons(nom).value(0);
    ASSERT_EQ(::kill(static_cast<pid_t>(avant), SIGKILL), 0);
    EXPECT_TRUE(Attend([&] { return Compte(nom, "registered again") == 1; })) << nom.toStdString();
    EXPECT_EQ(Compagnons(nom).size(), 1);
    EXPECT_NE(Compagnons(nom).value(0), avant);
  }
  // A second time, five seconds later then.
  ASSERT_EQ(::kill(static_cast<pid_t>(Compagnons(kNoms.at(1)).value(0)), SIGKILL), 0);
  EXPECT_TRUE(Attend([this] { return Compte(kNoms.at(1), "registered again") == 2; }));
  EXPECT_TRUE(UnDeChaque());
  Processus.terminate();
  ExigeFin();
}

TEST_F(ProgrammeEntier, ACompanionThatWasStartedAMomentAgoGoesWithItToo) {
  ASSERT_NO_FATAL_FAILURE(LanceEtAttendTous());
  ASSERT_EQ(::kill(static_cast<pid_t>(Compagnons(kNoms.at(1)).value(0)), SIGKILL), 0);
  // The next one has been started, and nobody knows yet how to send it "Quit*".
  ASSERT_TRUE(Attend([this] { return Compte(kNoms.at(1), "start, version") == 2; }));
  Processus.terminate();
  ExigeFin();
}

TEST_F(ProgrammeEntier, TwoCopiesDoNotFightAndTheFirstTakesOverAgain) {
  ASSERT_NO_FATAL_FAILURE(LanceEtAttendTous());
  QProcess second;
  ASSERT_NO_FATAL_FAILURE(LanceUneSeconde(second));
  const QList<qint64> siens = Compagnons();
  Processus.waitForFinished(8000);  // in which the first copy would have started others twice
  EXPECT_EQ(Compagnons(), siens);
  EXPECT_EQ(Compte(kNoms.at(1), "start, version"), 2);
  second.terminate();
  ASSERT_TRUE(second.waitForFinished(30000));
  const auto revenu = [this](const QString& nom) { return Compte(nom, "registered again") == 1; };
  EXPECT_TRUE(Attend([&] { return UnDeChaque() && std::all_of(kNoms.begin(), kNoms.end(), revenu); }))
      << "nobody holds the inboxes in the store any more, and they are the first copy's again";
  Processus.terminate();
  ExigeFin();
}

// A copy that is killed leaves its companions running. They would register with the first, beside its own.
TEST_F(ProgrammeEntier, ACopyThatIsKilledLeavesNoSecondCompanionBehind) {
  ASSERT_NO_FATAL_FAILURE(LanceEtAttendTous());
  QProcess second;
  ASSERT_NO_FATAL_FAILURE(LanceUneSeconde(second));
  const QList<qint64> errants = Compagnons();
  Processus.waitForFinished(8000);  // the first copy has seen the second
  second.kill();
  ASSERT_TRUE(second.waitForFinished(30000));
  const auto revenu = [this](const QString& nom) { return Compte(nom, "registered again") == 1; };
  ASSERT_TRUE(Attend([&] { return std::all_of(kNoms.begin(), kNoms.end(), revenu); }));
  EXPECT_TRUE(UnDeChaque());
  for (const qint64 pid : errants) EXPECT_FALSE(Compagnons().contains(pid));
  Processus.terminate();
  ASSERT_TRUE(Processus.waitForFinished(30000));
  // The inboxes of the one that was killed stay until the next start; no process does.
  EXPECT_TRUE(Attend([this] { return Compagnons().isEmpty(); }));
}

}  // namespace
}  // namespace vaktor::essai
