// SPDX-License-Identifier: GPL-3.0-or-later
// The machine under the program: kept awake over D-Bus, its clocks read from the system.
#pragma once

#include <QThread>
#include <memory>

#include "health/ports/awake_machine.h"
#include "platform/wakefulness/inhibitor_office.h"

namespace vaktor {

class RelaisBoucle;

/// Opening a bus and asking on it wait for others, so that both are done on a thread of its own, which the first
/// request starts. A thread that a dead bus holds is left behind at the end, and the process does not wait for it.
class EveilDBus : public MachineEveillee {
 public:
  explicit EveilDBus(AdressesBus adresses);
  ~EveilDBus() override;
  EveilDBus(const EveilDBus&) = delete;
  EveilDBus& operator=(const EveilDBus&) = delete;

  void Demande(Reponse reponse) override;
  void Rend() override;
  InstantsMachine LitInstants() const override;

 private:
  bool LanceFil();
  void Recoit(int tour, const BureauEveil::Resultat& resultat);

  AdressesBus Adresses_;
  std::shared_ptr<RelaisBoucle> Relais_;
  std::shared_ptr<BureauEveil> Bureau_;  // touched on the thread alone; whoever works there holds it
  QThread* Fil_ = nullptr;
  QObject* Guichet_ = nullptr;  // lives on the thread: what is posted to it runs there
  Reponse Reponse_;
  int Tour_ = 0;  // an answer to an earlier request counts no more
};

}  // namespace vaktor
