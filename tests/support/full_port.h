// SPDX-License-Identifier: GPL-3.0-or-later
// A port on loopback whose queue of connections is full: who connects is not answered at all.
#pragma once

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QList>

namespace vaktor::essai {

class PortPlein {
 public:
  PortPlein() : Prises_{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)} {
    sockaddr_in adresse{};
    adresse.sin_family = AF_INET;
    adresse.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* nue = reinterpret_cast<sockaddr*>(&adresse);
    socklen_t taille = sizeof adresse;
    const int prise = Prises_.first();
    if (::bind(prise, nue, taille) != 0 || ::listen(prise, 0) != 0 || ::getsockname(prise, nue, &taille) != 0) return;
    for (int i = 0; i < 4; ++i) {
      Prises_ << ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
      static_cast<void>(::connect(Prises_.last(), nue, sizeof adresse));  // in progress, and left so
    }
    Port_ = ntohs(adresse.sin_port);
  }
  ~PortPlein() {
    for (const int prise : Prises_) ::close(prise);
  }
  PortPlein(const PortPlein&) = delete;
  PortPlein& operator=(const PortPlein&) = delete;

  quint16 Port() const { return Port_; }  ///< 0 when there is none

 private:
  QList<int> Prises_;
  quint16 Port_ = 0;
};

}  // namespace vaktor::essai
