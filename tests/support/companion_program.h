// SPDX-License-Identifier: GPL-3.0-or-later
// A whole companion program against the main program's side of the channel: real sockets, a real store, and the window
// of a main program that only keeps a journal.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

#include "companions/companion_fakes.h"
#include "platform/channel/local_channel.h"
#include "platform/store/file_store.h"
#include "support/event_wait.h"

namespace vaktor::essai {

struct ProgrammeCompagnon : testing::Test {
  QTemporaryDir Temporaire;  ///< the program's private folder, and "run" in it for the channel
  DossierCanal Dossier{(QDir(Temporaire.path()).mkdir("run"), Temporaire.filePath("run/vaktor"))};
  CanalLocal Canal{Dossier};
  MagasinFichier Magasin{Temporaire.filePath("vaktor.ini")};
  QStringList Journal;
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Minuteries{Horloge};
  EtatLiaison Etat;
  ModuleSendMessages Envois{Canal, Etat};
  FenetreFausse Fenetre{Journal};
  std::unique_ptr<FormWinsock> Form = OuvreForm();
  QProcess Programme;

  std::unique_ptr<FormWinsock> OuvreForm() {
    return std::make_unique<FormWinsock>(
        PortsWinsock{Canal, Magasin, Minuteries, Envois, Fenetre, Fenetre, Etat, [] {}});
  }
  /// What the program finds: its folders, and `variables` over what this process has.
  void PrepareMilieu(const QMap<QString, QString>& variables = {}) {
    QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
    milieu.insert("XDG_RUNTIME_DIR", Temporaire.filePath("run"));
    milieu.insert(kVariableDossier, Temporaire.path());
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable) {
      milieu.insert(variable.key(), variable.value());
    }
    Programme.setProcessEnvironment(milieu);
    Programme.setProcessChannelMode(QProcess::MergedChannels);
  }
  void Demarre(const QString& programme, const QStringList& arguments = {}) {
    Programme.start(programme, arguments);
    ASSERT_TRUE(Programme.waitForStarted());
  }
  bool AttendFin() {
    return AttendQue([this] { return Programme.state() == QProcess::NotRunning; });
  }
  void Tue() {
    Programme.kill();
    Programme.waitForFinished();
  }
  void TearDown() override { Tue(); }
};

}  // namespace vaktor::essai
