// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that a compiler can defend: a buffer on the stack that is too small perhaps, and a large one.
#include <cstdio>
#include <cstring>

namespace {

volatile unsigned long taille = 4000;

__attribute__((noinline)) int Copie(const char* texte) {
  char place[16];
  std::strcpy(place, texte);
  return std::puts(place);
}

__attribute__((noinline)) int Remplis() {
  volatile char grande[100'000];
  grande[taille] = 1;
  return grande[taille];
}

}  // namespace

int main(int argc, char** argv) { return Copie(argv[argc - 1]) + Remplis(); }
