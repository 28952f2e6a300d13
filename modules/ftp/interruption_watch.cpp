// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/interruption_watch.h"

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <mutex>
#include <thread>

namespace vaktor {

namespace {
constexpr int kStatutSignal = 128;  // what a shell shows for a process that a signal ended
}

struct VeilleInterruption::Partage {
  explicit Partage(int patience) : Patience(patience) {}
  const int Patience;
  std::mutex Verrou;
  bool Restes = false;
  bool Demandee = false;

  /// Called on the thread that waits.
  void Recoit(int numero) {
    {
      const std::lock_guard garde(Verrou);
      // Nothing of ours is anywhere, and what is under way (a look-up of a name) may hang for long.
      if (!Restes) ::_exit(kStatutSignal + numero);
      Demandee = true;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(Patience));
    ::_exit(kStatutSignal + numero);
  }
};

VeilleInterruption::VeilleInterruption(int patience) : Partage_(std::make_shared<Partage>(patience)) {
  sigset_t signaux;
  sigemptyset(&signaux);
  for (const int numero : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signaux, numero);
  ::pthread_sigmask(SIG_BLOCK, &signaux, nullptr);  // threads made from here on inherit it
  std::thread([partage = Partage_, signaux] {
    int numero = 0;
    while (sigwait(&signaux, &numero) != 0) {
    }
    partage->Recoit(numero);
  }).detach();
}

void VeilleInterruption::ChangeRestes(bool restes) {
  const std::lock_guard garde(Partage_->Verrou);
  Partage_->Restes = restes;
}

bool VeilleInterruption::EstDemandee() const {
  const std::lock_guard garde(Partage_->Verrou);
  return Partage_->Demandee;
}

}  // namespace vaktor
