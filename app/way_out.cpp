// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/way_out.h"

#include <unistd.h>

#include <cstring>
#include <exception>

namespace vaktor {
namespace {

constexpr const char* kSansMots = "unknown failure";

// Only what works in any state: nothing here takes memory or runs what is left of the program.
[[noreturn]] void FinitToutDeSuite() {
  constexpr const char* kMots = "Vaktor: a failure while the program was ending\n";
  [[maybe_unused]] const ssize_t ecrit = ::write(STDERR_FILENO, kMots, std::strlen(kMots));
  ::_exit(kStatutEchec);
}

}  // namespace

bool EssaiePas(const std::function<void()>& pas, const std::function<void(const char* mots)>& dit) noexcept {
  try {
    try {
      pas();
      return true;
    } catch (const std::exception& echec) {
      dit(echec.what());
    } catch (...) {
      dit(kSansMots);
    }
  } catch (...) {
    // Telling it has failed too.
  }
  return false;
}

void PrepareSortie() noexcept { std::set_terminate(&FinitToutDeSuite); }

}  // namespace vaktor
