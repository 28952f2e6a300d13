// SPDX-License-Identifier: GPL-3.0-or-later
// A machine that answers what the test wants and whose clocks the test moves.
#pragma once

#include <utility>

#include "fakes/journal.h"
#include "fakes/virtual_clock.h"
#include "health/ports/awake_machine.h"

namespace vaktor::faux {

/// Answers at once, which the real one never does, unless the test holds the answer back.
class MachineFausse : public MachineEveillee {
 public:
  MachineFausse(Journal& journal, const HorlogeVirtuelle& temps) : Journal_(journal), Temps_(temps) {}

  void Demande(Reponse reponse) override {
    Journal_.Note([] { return QStringLiteral("awake: ask"); });
    ++Demandes;
    Tenue = Repond == ReponseEveil::kAccordee;
    EnAttente = std::move(reponse);
    if (!Lente) DonneReponse();
  }
  void Rend() override {
    Journal_.Note([] { return QStringLiteral("awake: give back"); });
    Tenue = false;
    EnAttente = nullptr;
  }
  InstantsMachine LitInstants() const override {
    return {Temps_.Millisecondes, Temps_.Millisecondes + DormiMs, MuralMs + Temps_.Millisecondes + DormiMs};
  }

  void DonneReponse() {
    if (const Reponse reponse = std::exchange(EnAttente, nullptr)) reponse(Repond, Mots);
  }

  ReponseEveil Repond = ReponseEveil::kAccordee;
  QString Mots;
  bool Lente = false;  ///< the answer comes with DonneReponse
  bool Tenue = false;
  int Demandes = 0;
  qint64 DormiMs = 0;
  qint64 MuralMs = 1'577'955'903'000;  ///< of the clock at the start of the program
  Reponse EnAttente;

 private:
  Journal& Journal_;
  const HorlogeVirtuelle& Temps_;
};

}  // namespace vaktor::faux
