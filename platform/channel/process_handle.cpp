#include "platform/channel/process_handle.h"

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vaktor {

PrisePid::PrisePid(qint32 pid) : Numero_(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0))) {}

PrisePid::~PrisePid() {
  if (Numero_ >= 0) ::close(Numero_);
}

void PrisePid::Envoie(int signal) const noexcept {
  if (Numero_ >= 0) ::syscall(SYS_pidfd_send_signal, Numero_, signal, nullptr, 0);
}

bool PrisePid::AttendFin(int millisecondes) const {
  pollfd attente{Numero_, POLLIN, 0};
  return ::poll(&attente, 1, millisecondes) == 1;
}

}  // namespace vaktor
