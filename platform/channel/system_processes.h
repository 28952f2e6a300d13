// The processes of this user as the system tells them (proc(5)), ended through pidfds (pidfd_open(2)), so that a number
// which another process has taken over in the meantime is never hit.
#pragma once

#include <QHash>
#include <QString>

#include "companions/ports/processes.h"

namespace vaktor {

/// User-interface thread.
class ProcessusSysteme : public Processus {
 public:
  static constexpr int kDelaiPoli = 300;   ///< milliseconds that a process has to follow the polite request
  static constexpr int kDelaiForce = 200;  ///< milliseconds that the system has to take a killed process away

  /// `variables` are set in the environment of every program that is started, beside what this one has.
  explicit ProcessusSysteme(const QHash<QString, QString>& variables = {}) : Variables_(variables) {}

  QList<ProcessusVu> PrendInstantane() const override;
  bool TermineProcessus(const ProcessusVu& vu) override;
  bool LanceProgramme(const QString& chemin) override;

 private:
  QHash<QString, QString> Variables_;
};

}  // namespace vaktor
