// SPDX-License-Identifier: GPL-3.0-or-later
// The real program, armed, with its photos on a real disk that falls silent.
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include "support/file_bytes.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

class ProgrammeEtDisqueMuet : public SurDisqueVolatil {
 public:
  ~ProgrammeEtDisqueMuet() override {
    Disque.reset();  // first: a call that is not answered keeps the program from ending
    Programme.kill();
    Programme.waitForFinished();
  }

 protected:
  void Lance() {
    ASSERT_TRUE(QDir().mkpath(Ailleurs() + QStringLiteral("/prive")));
    // The test picture moves all the time; the lowest tolerance makes of it an alarm in each frame.
    ASSERT_TRUE(essai::EcritOctets(Ailleurs() + QStringLiteral("/prive/vaktor.ini"),
                                   "[%general]\nretard=\"1\"\nseuilauto=\"0\"\nseuil=\"1\"\n[PHOTO]\nactif=\"1\"\n"
                                   "nombrephoto=\"100000\"\nrepertoire=\"" +
                                       Chemin().toUtf8() + "\"\n"));
    QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
    milieu.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    const QString canal = Ailleurs() + QStringLiteral("/run");
    ASSERT_TRUE(QDir().mkpath(canal));
    ASSERT_TRUE(QFile::setPermissions(canal, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    milieu.insert(QStringLiteral("XDG_RUNTIME_DIR"), canal);
    Programme.setProcessEnvironment(milieu);
    Programme.setProcessChannelMode(QProcess::ForwardedChannels);
    Programme.start(QStringLiteral(VAKTOR_EXECUTABLE),
                    {QStringLiteral("/camera:test"), QStringLiteral("/alarm"),
                     QStringLiteral("/dossier:") + Ailleurs() + QStringLiteral("/prive")});
    ASSERT_TRUE(Programme.waitForStarted());
  }
  qsizetype Photos() const { return QDir(Chemin()).entryList({QStringLiteral("*.jpg")}, QDir::Files).size(); }
  template <typename Condition>
  static bool Attend(Condition condition) {
    QElapsedTimer temps;
    temps.start();
    while (!condition()) {
      if (temps.elapsed() > 60000) return false;
      QThread::msleep(50);
    }
    return true;
  }

  QProcess Programme;
};

TEST_F(ProgrammeEtDisqueMuet, RecordsAgainWhenItAnswersAndEndsWhileItDoesNot) {
  Lance();
  ASSERT_TRUE(Attend([this] { return Photos() > 5; })) << "armed, and somebody moves";
  ASSERT_TRUE(Disque->SeTait());
  QThread::msleep(4000);
  ASSERT_TRUE(Disque->Repond());
  const qsizetype avant = Photos();
  ASSERT_TRUE(Attend([&] { return Photos() > avant + 5; }));
  ASSERT_TRUE(Disque->Gele());
  QThread::msleep(2000);
  // The end saves, asks the companions to leave and waits for no disk that is silent.
  Programme.terminate();
  ASSERT_TRUE(Programme.waitForFinished(20000));
  EXPECT_EQ(Programme.exitStatus(), QProcess::NormalExit);
}

TEST_F(ProgrammeEtDisqueMuet, StartsOnADiskThatIsSilentAndKeepsItsSetting) {
  ASSERT_TRUE(Disque->SeTait());
  Lance();
  const auto reglages = [this] {
    return essai::LitTexte(Ailleurs() + QStringLiteral("/prive/vaktor.ini")).remove(QLatin1Char('"'));
  };
  // The size of the picture is stored with the first frame.
  ASSERT_TRUE(Attend([&] { return reglages().contains(QStringLiteral("\nwidth=640\n")); })) << "it watches";
  EXPECT_TRUE(reglages().contains(QStringLiteral("\nrepertoire=") + Chemin() + QLatin1Char('\n')));
  QThread::msleep(4000);
  ASSERT_TRUE(Disque->Repond());
  ASSERT_TRUE(Attend([this] { return Photos() > 5; })) << "in the folder that was silent at the start";
  Programme.terminate();
  ASSERT_TRUE(Programme.waitForFinished(20000));
  EXPECT_EQ(Programme.exitStatus(), QProcess::NormalExit);
}

}  // namespace
}  // namespace vaktor
