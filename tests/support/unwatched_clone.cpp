// SPDX-License-Identifier: GPL-3.0-or-later
// Qt starts a program in a child that shares our memory until it is one of its own. The thread sanitizer of GCC 12
// takes that child for a copy, and tells it to overlook every lock from then on: with that, the thread that has started
// the program overlooks its own, and all that it shares with others is told as a race. So the sanitizer is not told of
// it.
#include <sched.h>
#include <sys/types.h>

#include <cstdarg>

extern "C" int __clone(int (*)(void*), void*, int, void*, ...);  // the C library's own

extern "C" int clone(int (*fonction)(void*), void* pile, int drapeaux, void* argument, ...) noexcept {
  va_list reste;
  va_start(reste, argument);
  auto* parent = va_arg(reste, pid_t*);
  auto* memoire = va_arg(reste, void*);
  auto* enfant = va_arg(reste, pid_t*);
  va_end(reste);
  return __clone(fonction, pile, drapeaux, argument, parent, memoire, enfant);
}
