// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/process_handle.h"

#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QFile>
#include <QList>
#include <cerrno>
#include <exception>

namespace vaktor {

int PrisePid::OuvrePid(qint32 pid) { return static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)); }

PrisePid::PrisePid(qint32 pid, Ouvreur ouvre) : Numero_(ouvre(pid)), Erreur_(Numero_ < 0 ? errno : 0) {}

PrisePid::~PrisePid() {
  if (Numero_ >= 0) ::close(Numero_);
}

bool PrisePid::EstPartie() const { return Erreur_ == ESRCH; }

void PrisePid::Envoie(int signal) const noexcept {
  if (Numero_ >= 0) ::syscall(SYS_pidfd_send_signal, Numero_, signal, nullptr, 0);
}

bool PrisePid::AttendFin(int millisecondes) const {
  pollfd attente{Numero_, POLLIN, 0};
  return ::poll(&attente, 1, millisecondes) == 1;
}

// proc(5): the name stands in brackets and may hold anything; behind it come the state and, twenty fields on, the
// birth.
PidSansPrise::Vu PidSansPrise::Regarde(qint32 pid) {
  constexpr qsizetype kEtat = 0;
  constexpr qsizetype kNaissance = 19;
  QFile fichier(QStringLiteral("/proc/%1/stat").arg(pid));
  if (!fichier.open(QIODevice::ReadOnly)) return {};  // also when this program has no descriptor left
  const QByteArray ligne = fichier.readAll();
  const QList<QByteArray> champs = ligne.mid(ligne.lastIndexOf(')') + 2).split(' ');
  if (champs.size() <= kNaissance) return {};
  return {champs.at(kNaissance), champs.at(kEtat) == "Z" || champs.at(kEtat) == "X"};
}

bool PidSansPrise::AFini() {
  // Asked first, and enough: it needs no descriptor, whose want may be why there is no hold.
  if (::kill(Pid_, 0) != 0 && errno == ESRCH) return true;
  const Vu vu = Regarde(Pid_);
  if (vu.Naissance.isEmpty()) return false;
  if (Naissance_.isEmpty()) Naissance_ = vu.Naissance;
  return vu.Mort || vu.Naissance != Naissance_;
}

void PidSansPrise::Envoie(int signal) noexcept {
  try {
    if (!AFini()) ::kill(Pid_, signal);
  } catch (const std::exception&) {
    // Want of memory to look whose number it is: better no signal than one to somebody else.
  }
}

}  // namespace vaktor
