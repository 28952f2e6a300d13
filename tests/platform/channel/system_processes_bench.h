// SPDX-License-Identifier: GPL-3.0-or-later
// Processes of this machine that the tests start: programs under names of their own, scripts, one that is stopped.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <memory>
#include <optional>

#include "platform/channel/system_processes.h"
#include "support/event_wait.h"

namespace vaktor::essai {

struct Systeme : testing::Test {
  QTemporaryDir Temporaire;
  ProcessusSysteme Processus;
  // Names that no other program of this machine has.
  const QString Nom = QStringLiteral("vkt%1").arg(::getpid());

  QString CopieProgramme(const QString& source, const QString& nom) const {
    QString cible = Temporaire.filePath(nom);
    QFile::copy(source, cible);
    return cible;
  }
  QString EcritScript(const QString& nom, const QByteArray& corps) const {
    QFile script(Temporaire.filePath(nom));
    if (!script.open(QIODevice::WriteOnly)) return {};
    script.write("#!/bin/bash\n" + corps);
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return script.fileName();
  }
  static std::optional<ProcessusVu> Trouve(const ProcessusSysteme& processus, qint64 pid) {
    for (const ProcessusVu& vu : processus.PrendInstantane())
      if (vu.Pid == pid) return vu;
    return std::nullopt;
  }
  std::optional<ProcessusVu> Trouve(qint64 pid) const { return Trouve(Processus, pid); }
  /// Behind it the process has stopped: one that has not been told yet would still be ended by the next signal.
  static bool Arrete(qint64 pid) {
    if (::kill(static_cast<pid_t>(pid), SIGSTOP) != 0) return false;
    return AttendQue([pid] {
      QFile etat(QStringLiteral("/proc/%1/stat").arg(pid));
      if (!etat.open(QIODevice::ReadOnly)) return true;
      const QByteArray ligne = etat.readAll();
      return ligne.mid(ligne.lastIndexOf(')')).startsWith(") T");
    });
  }
  static bool Demarre(ProcessusSysteme& processus, const QString& chemin) {
    return processus.LanceSuivi({.Chemin = chemin}, [] {}) != nullptr;
  }
};

}  // namespace vaktor::essai
