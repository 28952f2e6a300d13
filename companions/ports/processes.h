// Port: the processes of this user. Real implementation in platform/channel/.
#pragma once

#include <QList>
#include <QString>

namespace vaktor {

/// One row of the process table.
struct ProcessusVu {
  qint32 Pid = 0;
  QString Nom;        ///< file name of the executable, without folder
  QString NomAppele;  ///< the name under which the system started it: differs for a script, whose executable is its
                      ///< interpreter; at most 15 characters
};

/// User-interface thread.
class Processus {
 public:
  virtual ~Processus() = default;
  /// All running processes of this user without the calling one, in the order of the system's table.
  virtual QList<ProcessusVu> PrendInstantane() const = 0;
  /// Asks the process to end and, when it does not within a fraction of a second, ends it by force. True when it is
  /// gone. `vu` is a row of a snapshot: a process that has taken over the number since is left alone. Blocks for half a
  /// second at the most, and only for a process that ignores the polite request.
  virtual bool TermineProcessus(const ProcessusVu& vu) = 0;
  /// Starts a program by its full path (with "/"), without arguments, and does not wait for it. False when it is not
  /// there or cannot be started.
  virtual bool LanceProgramme(const QString& chemin) = 0;
};

}  // namespace vaktor
