// SPDX-License-Identifier: GPL-3.0-or-later
// Memory whose end is the end of a page that may be read, so that a read of one byte behind it ends the test.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <QtGlobal>
#include <cstddef>
#include <new>

namespace vaktor::essai {

class MemoireGardee {
 public:
  explicit MemoireGardee(std::size_t octets) {
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t avant = (octets + page - 1) / page * page;
    Taille_ = avant + page;
    void* debut = ::mmap(nullptr, Taille_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (debut == MAP_FAILED) throw std::bad_alloc();
    Debut_ = static_cast<quint8*>(debut);
    ::mprotect(Debut_ + avant, page, PROT_NONE);
    Octets_ = Debut_ + avant - octets;
  }
  ~MemoireGardee() { ::munmap(Debut_, Taille_); }
  MemoireGardee(const MemoireGardee&) = delete;
  MemoireGardee& operator=(const MemoireGardee&) = delete;

  quint8* Octets() const { return Octets_; }

 private:
  quint8* Debut_ = nullptr;
  quint8* Octets_ = nullptr;
  std::size_t Taille_ = 0;
};

}  // namespace vaktor::essai
