// SPDX-License-Identifier: GPL-3.0-or-later
// A hold on one process (pidfd_open(2)): it never means another one that has taken over the number.
#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <utility>

namespace vaktor {

/// Any one thread.
class PrisePid {
 public:
  /// Opens a hold as pidfd_open(2) does: the descriptor, or -1 and errno.
  using Ouvreur = int (*)(qint32 pid);

  explicit PrisePid(qint32 pid, Ouvreur ouvre = OuvrePid);
  ~PrisePid();
  PrisePid(const PrisePid&) = delete;
  PrisePid& operator=(const PrisePid&) = delete;

  /// False when there is no such process, or the system gives no hold on it.
  bool Ouverte() const { return Numero_ >= 0; }
  /// There is no such process. Not open and not gone: it may run, and the system has given no hold on it.
  bool EstPartie() const;
  /// Readable once the process has ended; for an event loop. -1 when not open.
  int Descripteur() const { return Numero_; }
  void Envoie(int signal) const noexcept;
  /// True when the process has ended within so long.
  bool AttendFin(int millisecondes) const;

  static int OuvrePid(qint32 pid);

 private:
  int Numero_;
  int Erreur_;  // errno of the opening
};

/// A process on which the system gives no hold: known by its number, and by the moment of its birth as far as that can
/// be read. Any one thread.
class PidSansPrise {
 public:
  explicit PidSansPrise(qint32 pid) : PidSansPrise(pid, Regarde(pid).Naissance) {}
  /// The same with a birth that is known; empty where it is not.
  PidSansPrise(qint32 pid, QByteArray naissance) : Pid_(pid), Naissance_(std::move(naissance)) {}
  /// It runs no more; also when another process has its number now.
  bool AFini();
  void Envoie(int signal) noexcept;

 private:
  struct Vu {
    QByteArray Naissance;  // as the system counts it; empty where nothing could be read
    bool Mort = false;     // ended, and not yet fetched by its parent
  };
  static Vu Regarde(qint32 pid);

  const qint32 Pid_;
  QByteArray Naissance_;
};

}  // namespace vaktor
