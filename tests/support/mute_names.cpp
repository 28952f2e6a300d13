// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/mute_names.h"

#include <dlfcn.h>
#include <netdb.h>
#include <unistd.h>

#include <cstring>

namespace vaktor::essai {

std::atomic_bool& NomsMuets() {
  static std::atomic_bool muets{false};
  return muets;
}

}  // namespace vaktor::essai

// In the place of the system's own for this program and the libraries in it.
extern "C" int getaddrinfo(const char* nom, const char* service, const addrinfo* voulu, addrinfo** adresses) {
  if (nom != nullptr && std::strcmp(nom, "hangs.example") == 0) {
    while (vaktor::essai::NomsMuets().load()) ::usleep(10'000);
    return EAI_AGAIN;
  }
  using Fonction = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
  static const auto systeme = reinterpret_cast<Fonction>(::dlsym(RTLD_NEXT, "getaddrinfo"));
  return systeme(nom, service, voulu, adresses);
}
