// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/wakefulness/dbus_wakefulness.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

#include "platform/folders/event_loop_relay.h"
#include "platform/wakefulness/machine_clocks.h"

namespace vaktor {
namespace {

constexpr unsigned long kAttenteFinMs = 2000;

// No exception may leave a thread.
BureauEveil::Resultat EssaieDemande(BureauEveil& bureau) {
  try {
    return bureau.Demande();
  } catch (const std::exception& echec) {
    return {ReponseEveil::kRefusee, QString::fromLocal8Bit(echec.what())};
  }
}

void EssaieLacher(BureauEveil& bureau) {
  try {
    bureau.Lache();
  } catch (const std::exception&) {
    // The end of the process gives back what is held.
  }
}

// The bus's own library waits at the end of the process for its thread, which the dead bus holds: nothing of ours is
// left to be done by then.
void FinitSansAttendreLeBus(int statut, void*) {
  std::fflush(nullptr);
  ::_exit(statut);
}

}  // namespace

EveilDBus::EveilDBus(AdressesBus adresses)
    : Adresses_(std::move(adresses)), Relais_(std::make_shared<RelaisBoucle>()) {}

EveilDBus::~EveilDBus() {
  Relais_->Coupe();
  if (Fil_ == nullptr) return;
  QMetaObject::invokeMethod(
      Guichet_, [bureau = Bureau_] { EssaieLacher(*bureau); }, Qt::QueuedConnection);
  // Behind what waits there already.
  QMetaObject::invokeMethod(
      Guichet_, [fil = Fil_] { fil->quit(); }, Qt::QueuedConnection);
  if (Fil_->wait(kAttenteFinMs)) {
    delete Guichet_;
    delete Fil_;
  } else {
    ::on_exit(&FinitSansAttendreLeBus, nullptr);
  }
}

bool EveilDBus::LanceFil() {
  if (Fil_ != nullptr) return true;
  auto fil = std::make_unique<QThread>();
  auto guichet = std::make_unique<QObject>();
  Bureau_ = std::make_shared<BureauEveil>(Adresses_);
  fil->start();
  if (!fil->isRunning()) return false;  // the system gives no thread: the next request tries again
  guichet->moveToThread(fil.get());
  Guichet_ = guichet.release();
  Fil_ = fil.release();
  return true;
}

void EveilDBus::Demande(Reponse reponse) {
  Reponse_ = std::move(reponse);
  const int tour = ++Tour_;
  const auto rend = [this, tour, relais = Relais_](const BureauEveil::Resultat& resultat) {
    relais->Poste([this, tour, resultat] { Recoit(tour, resultat); });
  };
  if (!LanceFil()) return rend({});
  QMetaObject::invokeMethod(
      Guichet_,
      [bureau = Bureau_, rend] {
        try {
          rend(EssaieDemande(*bureau));
        } catch (const std::exception&) {
          // Want of memory on the way back: the answer is lost as on a bus that is silent.
        }
      },
      Qt::QueuedConnection);
}

void EveilDBus::Rend() {
  ++Tour_;
  Reponse_ = {};
  if (Fil_ == nullptr) return;
  QMetaObject::invokeMethod(
      Guichet_, [bureau = Bureau_] { EssaieLacher(*bureau); }, Qt::QueuedConnection);
}

void EveilDBus::Recoit(int tour, const BureauEveil::Resultat& resultat) {
  if (tour != Tour_) return;
  if (const Reponse reponse = std::exchange(Reponse_, {})) reponse(resultat.Reponse, resultat.Mots);
}

InstantsMachine EveilDBus::LitInstants() const { return LitHorlogesMachine(); }

}  // namespace vaktor
