// SPDX-License-Identifier: GPL-3.0-or-later
// The real main program with its real companions, in folders of its own.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>

namespace vaktor::essai {

inline const QStringList kNoms = {QStringLiteral("VAKTORftp"), QStringLiteral("VAKTORmail"),
                                  QStringLiteral("VAKTORsound")};
inline constexpr int kPatienceEntier = 60000;  // milliseconds; a limit for a test that fails

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
  void Lance(const QString& executable = QStringLiteral(VAKTOR_EXECUTABLE)) { LanceAutre(Processus, executable); }
  /// The same, and each companion has registered.
  void LanceEtAttendTous() {
    Lance();
    ASSERT_TRUE(Attend([this] { return Enregistres() && UnDeChaque(); })) << Processus.readAll().toStdString();
  }
  /// Another copy over the same folders.
  void LanceAutre(QProcess& processus, const QString& executable = QStringLiteral(VAKTOR_EXECUTABLE)) const {
    processus.setProcessEnvironment(Milieu);
    processus.start(executable, {QStringLiteral("/camera:test"), QStringLiteral("/dossier:") + Prive});
    ASSERT_TRUE(processus.waitForStarted());
  }
  /// Another copy over the same folders, which ends the companions of the first and starts its own.
  void LanceUneSeconde(QProcess& seconde) {
    LanceAutre(seconde);
    for (const QString& nom : kNoms) {
      ASSERT_TRUE(Attend([&] { return Compte(nom, "start, version") == 2; }));
      ASSERT_TRUE(Attend([&] { return Compagnons(nom).size() == 1; }));
    }
  }
  template <typename Condition>
  bool Attend(Condition condition) {
    QElapsedTimer temps;
    temps.start();
    while (!condition()) {
      if (temps.elapsed() > kPatienceEntier) return false;
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
  /// How often a companion has written this into its log.
  qsizetype Compte(const QString& nom, const char* mots) const {
    QFile journal(Prive + QStringLiteral("/etat/%1.log").arg(nom));
    return journal.open(QIODevice::ReadOnly) ? journal.readAll().count(mots) : 0;
  }
  bool Enregistres() const {
    return std::all_of(kNoms.begin(), kNoms.end(),
                       [this](const QString& nom) { return Compte(nom, "registered") > 0; });
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

}  // namespace vaktor::essai
