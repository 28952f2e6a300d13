// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/core_file.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace vaktor {

void InterditImageMemoire() {
  const rlimit rien{0, 0};
  ::setrlimit(RLIMIT_CORE, &rien);
  const int filtre = ::open("/proc/self/coredump_filter", O_WRONLY | O_CLOEXEC);
  if (filtre < 0) return;
  [[maybe_unused]] const ssize_t ecrits = ::write(filtre, "0", 1);  // none of the kinds of memory
  ::close(filtre);
}

}  // namespace vaktor
