// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/sending_socket.h"

#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/channel/socket_address.h"

namespace vaktor {

SocketEmission::SocketEmission(const QByteArray& adresse)
    : Adresse_(FormeAdresse(adresse)), Socket_(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}

SocketEmission::~SocketEmission() {
  if (Socket_ >= 0) ::close(Socket_);
}

SocketEmission::Issue SocketEmission::Essaie(const QByteArray& message) {
  if (!Adresse_ || Socket_ < 0) return Issue::kPersonne;
  Regarde();  // what was taken before is told by a count that has fallen: look before it grows
  const ssize_t partis = ::sendto(Socket_, message.constData(), static_cast<std::size_t>(message.size()),
                                  MSG_DONTWAIT | MSG_NOSIGNAL, EnGeneral(*Adresse_), sizeof *Adresse_);
  const int erreur = errno;
  Regarde();
  if (partis >= 0) return Issue::kParti;
  const bool plein = erreur == EAGAIN || erreur == EWOULDBLOCK || erreur == ENOBUFS || erreur == EINTR;
  return plein ? Issue::kPlein : Issue::kPersonne;
}

bool SocketEmission::ANonLus() {
  Regarde();
  return NonLus_ > 0;
}

bool SocketEmission::APris() {
  Regarde();
  return std::exchange(Pris_, false);
}

void SocketEmission::Regarde() {
  int nonLus = 0;
  if (Socket_ < 0 || ::ioctl(Socket_, SIOCOUTQ, &nonLus) != 0) nonLus = 0;
  Pris_ = Pris_ || nonLus < NonLus_;
  NonLus_ = nonLus;
}

}  // namespace vaktor
