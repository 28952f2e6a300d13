// SPDX-License-Identifier: GPL-3.0-or-later
// The other end of what a harness connects to.
#pragma once

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <thread>
#include <utility>

namespace vaktor {

/// Serves one caller after the other on a port of the loopback that the system gives, on a thread that ends with the
/// process. A caller that neither reads nor writes for two seconds is left.
class ServeurLocal {
 public:
  explicit ServeurLocal(std::function<void(int client)> sert)
      : Prise_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in adresse{};
    adresse.sin_family = AF_INET;
    adresse.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* nue = reinterpret_cast<sockaddr*>(&adresse);
    socklen_t taille = sizeof adresse;
    if (::bind(Prise_, nue, taille) != 0 || ::listen(Prise_, 16) != 0 || ::getsockname(Prise_, nue, &taille) != 0)
      return;
    Port_ = ntohs(adresse.sin_port);
    std::thread([prise = Prise_, sert = std::move(sert)] { Attend(prise, sert); }).detach();
  }
  int Port() const { return Port_; }

  /// False when the caller is gone.
  static bool Envoie(int client, const std::string& octets) {
    for (std::size_t parti = 0; parti < octets.size();) {
      const ssize_t n = ::send(client, octets.data() + parti, octets.size() - parti, MSG_NOSIGNAL);
      if (n <= 0) return false;
      parti += static_cast<std::size_t>(n);
    }
    return true;
  }

 private:
  [[noreturn]] static void Attend(int prise, const std::function<void(int client)>& sert) {
    constexpr timeval kPatience{.tv_sec = 2, .tv_usec = 0};
    while (true) {
      const int client = ::accept4(prise, nullptr, nullptr, SOCK_CLOEXEC);
      if (client < 0) continue;
      ::setsockopt(client, SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
      ::setsockopt(client, SOL_SOCKET, SO_SNDTIMEO, &kPatience, sizeof kPatience);
      sert(client);
      ::close(client);
    }
  }

  const int Prise_;
  int Port_ = 0;
};

}  // namespace vaktor
