// SPDX-License-Identifier: GPL-3.0-or-later
// A process that the system gives no descriptor: nothing can be opened, what is open goes on.
#pragma once

#include <sys/resource.h>

namespace vaktor::essai {

class SansDescripteur {
 public:
  SansDescripteur() {
    ::getrlimit(RLIMIT_NOFILE, &Avant_);
    const rlimit aucun{0, Avant_.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &aucun);
  }
  ~SansDescripteur() { ::setrlimit(RLIMIT_NOFILE, &Avant_); }
  SansDescripteur(const SansDescripteur&) = delete;
  SansDescripteur& operator=(const SansDescripteur&) = delete;

 private:
  rlimit Avant_{};
};

}  // namespace vaktor::essai
