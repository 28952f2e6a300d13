// SPDX-License-Identifier: GPL-3.0-or-later
// Tests mostly run as root, whom no file refuses. For as long as this lives the whole process, threads that are made
// meanwhile included, may do no more than anybody.
#pragma once

#include <unistd.h>

namespace vaktor {

class UtilisateurOrdinaire {
 public:
  UtilisateurOrdinaire() {
    constexpr uid_t kPersonne = 65534;
    if (::geteuid() == 0) Abaisse_ = ::seteuid(kPersonne) == 0;
  }
  ~UtilisateurOrdinaire() {
    if (Abaisse_ && ::seteuid(0) != 0) ::_exit(3);  // nothing that follows would be a test of anything
  }
  UtilisateurOrdinaire(const UtilisateurOrdinaire&) = delete;
  UtilisateurOrdinaire& operator=(const UtilisateurOrdinaire&) = delete;

  /// False where root cannot become anybody else, as in a name space that knows one user only.
  static bool Reussi() { return ::geteuid() != 0; }

 private:
  bool Abaisse_ = false;
};

}  // namespace vaktor
