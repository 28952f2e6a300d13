// SPDX-License-Identifier: GPL-3.0-or-later
// Sees whether a file is opened. An opening that is refused is none.
#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <QFile>
#include <QString>
#include <array>

namespace vaktor {

class GuetOuvertures {
 public:
  /// Whoever watches must be allowed to read it at this moment.
  explicit GuetOuvertures(const QString& fichier) : Guet_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    Veille_ = ::inotify_add_watch(Guet_, QFile::encodeName(fichier).constData(), IN_OPEN) >= 0;
  }
  ~GuetOuvertures() { ::close(Guet_); }
  GuetOuvertures(const GuetOuvertures&) = delete;
  GuetOuvertures& operator=(const GuetOuvertures&) = delete;

  bool Veille() const { return Veille_; }
  /// Since the last call.
  bool Ouvert() {
    std::array<char, 4096> evenements{};
    bool ouvert = false;
    while (::read(Guet_, evenements.data(), evenements.size()) > 0) ouvert = true;
    return ouvert;
  }

 private:
  int Guet_;
  bool Veille_ = false;
};

}  // namespace vaktor
