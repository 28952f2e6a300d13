// SPDX-License-Identifier: GPL-3.0-or-later
// The processes of this user as the system tells them (proc(5)), ended through pidfds (pidfd_open(2)), so that a number
// which another process has taken over in the meantime is never hit.
#pragma once

#include <QObject>
#include <QProcessEnvironment>
#include <QString>
#include <chrono>

#include "companions/ports/processes.h"
#include "platform/folders/bounded_work.h"

namespace vaktor {

/// What a companion finds in its environment: that of this program, and in kVariableDossier the private folder, or no
/// such variable where there is none.
QProcessEnvironment DonneMilieuCompagnon(const QString& dossierPrive);

/// User-interface thread.
class ProcessusSysteme : public Processus {
 public:
  static constexpr int kDelaiPoli = 300;  ///< milliseconds that a process has to follow the polite request
  /// Milliseconds that a mail companion has beyond: it waits for the server's answer to a mail that is under way, and
  /// one that is ended before sends that mail a second time. It ends by itself within fifteen seconds.
  static constexpr int kPatienceMail = 16'000;
  /// For the disk of a program that is to be started; one that does not answer has none. The first time longer: at a
  /// login everything is read from it at once, and a start that fails there is not made again.
  static constexpr std::chrono::milliseconds kPatienceDisque{700};
  static constexpr std::chrono::milliseconds kPatienceDepart{5000};
  static constexpr int kDelaiForce = 200;  ///< milliseconds that the system has to take a killed process away

  /// `dossierPrive` is the private folder of this run, empty where there is none. It is handed to every program that is
  /// started, in the variable kVariableDossier; and the process table holds only what was started with the same one
  /// (with none, where this run has none), so that a demonstration or a test beside a watch that runs does not end its
  /// companions.
  /// `patienceMail`: kPatienceMail, and 0 for who has no event loop. While it runs TermineProcessus has given false.
  explicit ProcessusSysteme(const QString& dossierPrive = QString(), int patienceMail = kPatienceMail);

  QList<ProcessusVu> PrendInstantane() const override;
  bool TermineProcessus(const ProcessusVu& vu) override;
  std::unique_ptr<ProgrammeSuivi> LanceSuivi(const Lancement& quoi, std::function<void()> fini) override;

 private:
  bool Demarre(const Lancement& quoi, qint64& pid) const;

  QString DossierPrive_;
  int PatienceMail_;
  mutable TravauxBornes Travaux_;
  QObject Contexte_;  // of the ends by force that are still to come
};

}  // namespace vaktor
