#pragma once

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
  void Oublie() override { ++Oublis; }

  EtatsCompagnons Etats;
  bool Muet = false;  ///< the disk does not answer
  int Demandes = 0;
  int Oublis = 0;
};

}  // namespace vaktor::faux
