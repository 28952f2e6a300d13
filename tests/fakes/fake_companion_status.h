// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <new>
#include <utility>

#include "companions/ports/companion_status.h"

namespace vaktor::faux {

/// Answers when the test says so, or at once with what it holds.
class LecteurEtatsFaux : public LecteurEtats {
 public:
  void LitEtats(Recoit recoit) override {
    ++Demandes;
    if (Muet) return;
    recoit(Etats);
  }
  void Oublie() override {
    ++Oublis;
    if (Bloque) throw std::bad_alloc();
  }

  EtatsCompagnons Etats;
  bool Muet = false;    ///< the disk does not answer
  bool Bloque = false;  ///< letting a question go throws
  int Demandes = 0;
  int Oublis = 0;
};

}  // namespace vaktor::faux
