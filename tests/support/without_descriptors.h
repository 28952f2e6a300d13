// SPDX-License-Identifier: GPL-3.0-or-later
// A moment in which the system gives no descriptor: nothing can be opened, while what is deleted and renamed still is.
#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace vaktor {

/// While it lives the process gets no descriptor beyond `libres` more than it has. Of the whole process: for tests
/// without other threads.
class SansDescripteur {
 public:
  explicit SansDescripteur(rlim_t libres = 0) {
    const int premier = ::open("/dev/null", O_RDONLY | O_CLOEXEC);  // the lowest that is free
    ::close(premier);
    ::getrlimit(RLIMIT_NOFILE, &Avant_);
    const rlimit peu{.rlim_cur = static_cast<rlim_t>(premier) + libres, .rlim_max = Avant_.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &peu);
  }
  ~SansDescripteur() { ::setrlimit(RLIMIT_NOFILE, &Avant_); }
  SansDescripteur(const SansDescripteur&) = delete;
  SansDescripteur& operator=(const SansDescripteur&) = delete;

  /// For tests of code that works with objects of many kinds meanwhile: the sanitizer that checks the kinds opens a
  /// pipe for it, is given none, and tells what is whole as broken. Skip them.
#if defined(__SANITIZE_ADDRESS__)
  static constexpr bool kTroubleLesVerifications = true;
#else
  static constexpr bool kTroubleLesVerifications = false;
#endif

 private:
  rlimit Avant_{};
};

}  // namespace vaktor
