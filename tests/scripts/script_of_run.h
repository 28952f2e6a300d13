// SPDX-License-Identifier: GPL-3.0-or-later
// A script of ./run, its commands called one by one in a folder of the test's own.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace vaktor {

class ScriptDeRun : public testing::Test {
 protected:
  QString Dans(const QString& chemin) const { return Dossier_.path() + chemin; }
  void Ecrit(const QString& chemin, const QByteArray& octets) const {
    QFile fichier(Dans(chemin));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(octets);
  }

  /// Runs `commandes` after the script, with `arguments` as its own and the folder in `racine`; what it says.
  QString Dit(const QString& script, const QString& commandes, const QStringList& arguments = {}) const {
    QProcess bash;
    bash.setProcessChannelMode(QProcess::MergedChannels);
    const QString debut = QStringLiteral("set -u -o pipefail; . '%1/%2'; racine='%3'; ")
                              .arg(QStringLiteral(VAKTOR_SCRIPTS), script, Dossier_.path());
    bash.start(QStringLiteral("bash"), QStringList{"-c", debut + commandes, "run"} + arguments);
    EXPECT_TRUE(bash.waitForFinished());
    return QString::fromUtf8(bash.readAll());
  }

  QTemporaryDir Dossier_;
};

}  // namespace vaktor
