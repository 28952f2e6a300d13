// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/sound/sound_thread.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace vaktor {

namespace {
constexpr std::chrono::seconds kPatienceFin(1);
constexpr std::chrono::seconds kLong(1);
}  // namespace

struct FilSon::Partage {
  std::mutex Verrou;
  std::condition_variable Reveil;
  std::deque<std::function<void()>> Travaux;
  bool EnTravail = false;
  std::chrono::steady_clock::time_point Depuis;
  bool Fin = false;

  void Tourne() {
    std::unique_lock garde(Verrou);
    for (;;) {
      Reveil.wait(garde, [this] { return Fin || !Travaux.empty(); });
      if (Travaux.empty()) return;
      const std::function<void()> travail = std::move(Travaux.front());
      Travaux.pop_front();
      EnTravail = true;
      Depuis = std::chrono::steady_clock::now();
      garde.unlock();
      travail();
      garde.lock();
      EnTravail = false;
      Reveil.notify_all();
    }
  }
};

FilSon::FilSon() : Partage_(std::make_shared<Partage>()) {
  std::thread([partage = Partage_] { partage->Tourne(); }).detach();
}

FilSon::~FilSon() {
  std::unique_lock garde(Partage_->Verrou);
  Partage_->Fin = true;
  Partage_->Reveil.notify_all();
  Partage_->Reveil.wait_for(garde, kPatienceFin, [this] { return Partage_->Travaux.empty() && !Partage_->EnTravail; });
}

void FilSon::Pose(std::function<void()> travail) {
  const std::lock_guard garde(Partage_->Verrou);
  Partage_->Travaux.push_back(std::move(travail));
  Partage_->Reveil.notify_all();
}

bool FilSon::EstBloque() const {
  const std::lock_guard garde(Partage_->Verrou);
  return Partage_->EnTravail && std::chrono::steady_clock::now() - Partage_->Depuis > kLong;
}

}  // namespace vaktor
