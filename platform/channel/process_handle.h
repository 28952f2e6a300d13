// A hold on one process (pidfd_open(2)): it never means another one that has taken over the number.
#pragma once

#include <QtGlobal>

namespace vaktor {

/// Any one thread.
class PrisePid {
 public:
  explicit PrisePid(qint32 pid);
  ~PrisePid();
  PrisePid(const PrisePid&) = delete;
  PrisePid& operator=(const PrisePid&) = delete;

  /// False when there is no such process, or the system gives no hold on it.
  bool Ouverte() const { return Numero_ >= 0; }
  /// Readable once the process has ended; for an event loop. -1 when not open.
  int Descripteur() const { return Numero_; }
  void Envoie(int signal) const noexcept;
  /// True when the process has ended within so long.
  bool AttendFin(int millisecondes) const;

 private:
  int Numero_;
};

}  // namespace vaktor
