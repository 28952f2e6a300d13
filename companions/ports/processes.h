// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the processes of this user. Real implementation in platform/channel/.
#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <memory>

namespace vaktor {

/// One row of the process table.
struct ProcessusVu {
  qint32 Pid = 0;
  QString Nom;        ///< file name of the executable, without folder
  QString NomAppele;  ///< the name under which the system started it: differs for a script, whose executable is its
                      ///< interpreter; at most 15 characters
  QString NomScript =
      {};  ///< file name of the script that it runs, also where the interpreter was found by another program
           ///< ("#!/usr/bin/env python3") and no other name tells; empty for what is no script
  bool Essai = false;  ///< a rehearsal: it has the argument kArgumentEssai
  bool operator==(const ProcessusVu&) const = default;
};

/// A program that was started and is followed to its end. Destroyed, it runs on and nobody is told of its end.
/// User-interface thread.
class ProgrammeSuivi {
 public:
  virtual ~ProgrammeSuivi() = default;
  /// Asks it to end and returns at once. One that is stopped is woken, or it would not hear.
  virtual void DemandeFin() noexcept = 0;
  /// Ends it by force and returns at once: it runs nothing of its own from here on. Its end is told as any other.
  virtual void Tue() noexcept = 0;
};

/// What to start.
struct Lancement {
  QString Chemin;        ///< full path, with "/"; no arguments
  bool Relance = false;  ///< in the place of one that has ended: its environment tells it so
};

/// User-interface thread.
class Processus {
 public:
  virtual ~Processus() = default;
  /// All running processes of this user without the calling one, in the order of the system's table.
  virtual QList<ProcessusVu> PrendInstantane() const = 0;
  /// Asks the process to end and, when it does not within a fraction of a second, ends it by force. True when it is
  /// gone, also when it had ended by itself since the snapshot of which `vu` is a row; a process that has taken over
  /// the number is left alone. Blocks for half a second at the most, and only for a process that ignores the polite
  /// request. A mail companion that is sending is not ended by force at once: false, and so it is some seconds later.
  virtual bool TermineProcessus(const ProcessusVu& vu) = 0;
  /// Starts a program without arguments, does not wait for it, and follows it: `fini` is called once from the event
  /// loop when it has ended, in whatever way, and never from inside this call. It may destroy the object that was given
  /// back. Null when the program is not there or cannot be started.
  virtual std::unique_ptr<ProgrammeSuivi> LanceSuivi(const Lancement& quoi, std::function<void()> fini) = 0;
};

}  // namespace vaktor
