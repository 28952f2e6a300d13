// The real main program with its real companions: they come up and register, they go with it, nothing stays behind.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

namespace vaktor {
namespace {

const QStringList kNoms = {QStringLiteral("VAKTORftp"), QStringLiteral("VAKTORmail"), QStringLiteral("VAKTORsound")};

class ProgrammeEntier : public testing::Test {
 protected:
  ProgrammeEntier() {
    Milieu.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    QDir(Dossier.path()).mkdir(QStringLiteral("run"));
    QFile::setPermissions(Dossier.filePath(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Milieu.insert(QStringLiteral("XDG_RUNTIME_DIR"), Dossier.filePath(QStringLiteral("run")));
    Prive = Dossier.filePath(QStringLiteral("prive"));
    Processus.setProcessChannelMode(QProcess::MergedChannels);
  }

 public:
  ~ProgrammeEntier() override {
    Processus.kill();
    Processus.waitForFinished();
    for (const qint64 pid : Compagnons()) ::kill(static_cast<pid_t>(pid), SIGKILL);
  }

 protected:
  void Lance(const QString& executable = QStringLiteral(VAKTOR_EXECUTABLE)) {
    Processus.setProcessEnvironment(Milieu);
    Processus.start(executable, {QStringLiteral("/camera:test"), QStringLiteral("/dossier:") + Prive});
    ASSERT_TRUE(Processus.waitForStarted());
  }
  template <typename Condition>
  bool Attend(Condition condition) {
    QElapsedTimer temps;
    temps.start();
    while (!condition()) {
      if (temps.elapsed() > 40000) return false;
      Processus.waitForFinished(20);
    }
    return true;
  }
  /// The processes of the companions' names that were started with the private folder of this test.
  QList<qint64> Compagnons(const QString& nom = QStringLiteral("VAKTOR")) const {
    QList<qint64> trouves;
    for (const QString& pid : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
      QFile milieu(QStringLiteral("/proc/%1/environ").arg(pid));
      if (pid.toLongLong() == 0 || !milieu.open(QIODevice::ReadOnly)) continue;
      const QByteArray variables = '\0' + milieu.readAll();
      const QString executable = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(pid))).fileName();
      if (executable.startsWith(nom) &&
          variables.contains('\0' + QByteArray("VAKTOR_DOSSIER=") + Prive.toUtf8() + '\0'))
        trouves.append(pid.toLongLong());
    }
    return trouves;
  }
  bool Enregistres() const {
    for (const QString& nom : kNoms) {
      QFile journal(Prive + QStringLiteral("/etat/%1.log").arg(nom));
      if (!journal.open(QIODevice::ReadOnly) || !journal.readAll().contains("registered")) return false;
    }
    return true;
  }
  bool UnDeChaque() const {
    for (const QString& nom : kNoms)
      if (Compagnons(nom).size() != 1) return false;
    return true;
  }
  void ExigeFin() {
    ASSERT_TRUE(Processus.waitForFinished(30000));
    EXPECT_EQ(Processus.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(Processus.exitCode(), 0);
    EXPECT_TRUE(Attend([this] { return Compagnons().isEmpty(); })) << Compagnons().size() << " stayed behind";
    EXPECT_TRUE(QDir(Milieu.value(QStringLiteral("XDG_RUNTIME_DIR")) + QStringLiteral("/vaktor"))
                    .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                    .isEmpty())
        << "a box was left in the channel's folder";
  }

  QTemporaryDir Dossier;
  QString Prive;
  QProcessEnvironment Milieu = QProcessEnvironment::systemEnvironment();
  QProcess Processus;
};

TEST_F(ProgrammeEntier, ItsCompanionsRegisterAndEndWithItOnTerm) {
  Lance();
  ASSERT_TRUE(Attend([this] { return Enregistres() && UnDeChaque(); })) << Processus.readAll().toStdString();
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
  EXPECT_TRUE(sourd.waitForFinished(10000)) << "a stray that ignores the polite request survived";
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

}  // namespace
}  // namespace vaktor
