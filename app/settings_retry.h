// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that could not be saved are tried again without the user.
#pragma once

#include <exception>
#include <functional>
#include <optional>
#include <utility>

#include "health/watch_health.h"
#include "settings/saving.h"

namespace vaktor {

/// A disk has room again, a network volume is back: nobody changes a setting only to try, and until a save succeeds the
/// companions work with the old ones. Every kPauseMs while kReglagesNonSauves counts, and only when `repond` says that
/// the disk of the store answers: a save that it does not take holds the thread of the windows for a second, where
/// nobody has asked for anything. `repond` itself must not wait long. Owner: app/. User-interface thread.
class ReessaieReglages : public ObservateurSante {
 public:
  static constexpr qint64 kPauseMs = 30'000;
  ReessaieReglages(SauvegardeParametres& sauvegarde, std::function<bool()> repond)
      : Sauvegarde_(sauvegarde), Repond_(std::move(repond)) {}

  void Commence(const ConditionEnCours& condition) override {
    if (condition.Quoi == Condition::kReglagesNonSauves) Attend_ = true;
  }
  void Finit(const ConditionEnCours& condition, const QDateTime&) override {
    if (condition.Quoi != Condition::kReglagesNonSauves) return;
    Attend_ = false;
    Prochain_.reset();
  }
  bool Tic(qint64 maintenantMs) override {
    if (!Attend_) return false;
    if (!Prochain_) Prochain_ = maintenantMs + kPauseMs;
    if (maintenantMs < *Prochain_) return false;
    Prochain_ = maintenantMs + kPauseMs;
    try {
      if (Repond_()) Sauvegarde_.SauveParametres();  // takes the condition back by itself
    } catch (const std::exception&) {
      // It was told at the first failure and stands: a message every half minute would be one too many.
    }
    return false;
  }

 private:
  SauvegardeParametres& Sauvegarde_;
  const std::function<bool()> Repond_;
  bool Attend_ = false;
  std::optional<qint64> Prochain_;
};

}  // namespace vaktor
