// SPDX-License-Identifier: GPL-3.0-or-later
// A socket that sends to one address. One for each, because the kernel then tells how much of what was sent through it
// was not taken yet (SIOCOUTQ, unix(7)).
#pragma once

#include <sys/un.h>

#include <QByteArray>
#include <optional>

namespace vaktor {

/// Never blocks, never fails aloud. Any one thread.
class SocketEmission {
 public:
  enum class Issue { kParti, kPlein, kPersonne };

  /// `adresse`: full path of the socket that is sent to.
  explicit SocketEmission(const QByteArray& adresse);
  ~SocketEmission();
  SocketEmission(const SocketEmission&) = delete;
  SocketEmission& operator=(const SocketEmission&) = delete;

  Issue Essaie(const QByteArray& message);
  /// True while the other side has not taken everything that was sent from here. Where the kernel does not tell: false.
  bool ANonLus();
  /// Whether it has taken anything since this was asked last.
  bool APris();

 private:
  void Regarde();

  std::optional<sockaddr_un> Adresse_;
  int Socket_ = -1;
  int NonLus_ = 0;  // as the kernel counts them; grows by our own sending alone
  bool Pris_ = false;
};

}  // namespace vaktor
