// SPDX-License-Identifier: GPL-3.0-or-later
// The real program on a message bus of the test's own, with a login manager that only remembers.
#include <gtest/gtest.h>

#include <QFile>

#include "support/private_bus.h"

namespace vaktor {
namespace {

class ProgrammeEveille : public testing::Test {
 protected:
  void Lance(const QString& bus);
  QByteArray Reglages() const {
    QFile fichier(Dossier.filePath(QStringLiteral("vaktor.ini")));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
  }

  QTemporaryDir Dossier;
  essai::ProcessusDeTest Programme;
};

void ProgrammeEveille::Lance(const QString& bus) {
  QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
  milieu.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  milieu.insert(QStringLiteral("XDG_RUNTIME_DIR"), Dossier.path());
  milieu.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), bus);
  Programme.Processus.setProcessEnvironment(milieu);
  Programme.Processus.setProcessChannelMode(QProcess::MergedChannels);
  Programme.Processus.start(
      QStringLiteral(VAKTOR_EXECUTABLE),
      {QStringLiteral("/camera:test"), QStringLiteral("/alarm"), QStringLiteral("/dossier:") + Dossier.path()});
  ASSERT_TRUE(Programme.Processus.waitForStarted());
}

TEST_F(ProgrammeEveille, HoldsTheLoginManagersRequestWhileItsCameraRuns) {
  essai::BusPrive bus;
  bus.LanceLogin1();
  Lance(bus.Adresse());
  ASSERT_TRUE(essai::AttendQue([&] { return !bus.Empechements().isEmpty(); }))
      << Programme.Processus.readAll().toStdString();
  EXPECT_EQ(bus.Empechements(), QStringList{QStringLiteral("sleep:idle Vaktor block")});
  Programme.Processus.terminate();
  ASSERT_TRUE(Programme.Processus.waitForFinished(30'000));
  EXPECT_EQ(Programme.Processus.exitCode(), 0);
  EXPECT_TRUE(essai::AttendQue([&] { return bus.Empechements().isEmpty(); }))
      << "a companion that has not ended yet may not hold it";
}

// The library of the bus would wait for it 25 seconds, in the call and once more at the end of the process.
TEST_F(ProgrammeEveille, ABusThatSaysNothingHoldsUpNeitherTheWatchNorTheEnd) {
  const essai::BusSourd sourd;
  Lance(sourd.Adresse());
  ASSERT_TRUE(essai::AttendQue([this] { return Reglages().contains("width=\"640\""); }))
      << Programme.Processus.readAll().toStdString();
  EXPECT_FALSE(Programme.Processus.waitForFinished(2000)) << "the request is made a second after the camera's start";
  Programme.Processus.terminate();
  EXPECT_TRUE(Programme.Processus.waitForFinished(15'000));
  EXPECT_EQ(Programme.Processus.exitCode(), 0);
}

}  // namespace
}  // namespace vaktor
