// SPDX-License-Identifier: GPL-3.0-or-later
// Kills a saving process again and again at random moments and looks at the file after each.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>

#include "platform/store/file_store.h"
#include "platform/store/store_generations.h"

namespace vaktor {

struct BilanTueries {
  int Tueries = 0;
  int EnPleinTravail = 0;  ///< the process had finished at least one save before it died
  int Avance = 0;          ///< the file held a later generation than after the kill before
};

/// Each kill must leave a whole table, no older than the last save that was reported as finished.
inline BilanTueries TueAuHasard(int nombre, quint32 graine) {
  QRandomGenerator hasard(graine);
  const QTemporaryDir dossier;
  const QString fichier = dossier.filePath("config/settings.ini");
  BilanTueries bilan;
  qint64 avant = 0;
  for (int i = 0; i < nombre && !testing::Test::HasFailure(); ++i) {
    QProcess processus;
    processus.start(PROGRAMME_MAGASIN, {fichier, "generations"});
    EXPECT_TRUE(processus.waitForReadyRead(20'000)) << "no first save";
    QThread::usleep(static_cast<unsigned long>(hasard.bounded(30'000)));
    ::kill(static_cast<pid_t>(processus.processId()), SIGKILL);
    processus.waitForFinished(20'000);
    const QByteArrayList finies = processus.readAllStandardOutput().trimmed().split('\n');
    const qint64 annoncee = finies.last().toLongLong();
    ++bilan.Tueries;
    bilan.EnPleinTravail += annoncee > 0 ? 1 : 0;

    const MagasinFichier magasin(fichier);
    const std::optional<qint64> generation = LitGeneration(magasin);
    EXPECT_TRUE(generation.has_value()) << "a mixed table after kill " << i;
    EXPECT_GE(generation.value_or(-1), annoncee) << "a finished save was lost";
    EXPECT_LE(generation.value_or(-1), annoncee + 1);
    EXPECT_EQ(QFileInfo(fichier).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther), 0);
    bilan.Avance += generation.value_or(-1) > avant ? 1 : 0;
    avant = generation.value_or(-1);
  }
  return bilan;
}

}  // namespace vaktor
