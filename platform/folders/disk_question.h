// SPDX-License-Identifier: GPL-3.0-or-later
// One question at a time to a disk that may not answer, and the answer in the event loop of who asked.
#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

#include "platform/folders/bounded_work.h"
#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// For those that look again later: silence is no news, nothing is told of it, and the end of the program waits for no
/// thread. Where a person waits for the answer, lateness is news and files must be closed at the end: that is
/// QuestionPatiente.
/// Used and destroyed on the thread whose event loop it is. A thread that waits for a dead disk ends with the disk or
/// with the process; more than TravauxBornes::kAuPlus of them are not started.
template <typename Reponse>
class QuestionDisque {
 public:
  /// An answer that has not come by then may never come: the disk is silent for good, or the answer was lost on the
  /// thread for want of memory.
  static constexpr std::chrono::seconds kPatience{60};
  using Montre = std::function<std::chrono::steady_clock::time_point()>;

  explicit QuestionDisque(Montre montre = std::chrono::steady_clock::now) : Montre_(std::move(montre)) {}
  ~QuestionDisque() { Relais_->Coupe(); }
  QuestionDisque(const QuestionDisque&) = delete;
  QuestionDisque& operator=(const QuestionDisque&) = delete;

  /// Runs `travail`, which must own everything it uses, on a thread, and gives what it returns to `rend` in the event
  /// loop; `sinon` where it throws or no thread is to be had. What was asked before is forgotten.
  void Pose(std::function<Reponse()> travail, const Reponse& sinon, std::function<void(const Reponse&)> rend) {
    Oublie();
    const std::shared_ptr<Demande> demande = Demande_ = std::make_shared<Demande>(Demande{std::move(rend), Montre_()});
    const auto finit = [this, demande, relais = Relais_](Reponse reponse) {
      // Run only while the relay, and so this object, is there.
      relais->Poste([this, demande, reponse = std::move(reponse)] { Livre(demande, reponse); });
    };
    const bool parti = Travaux_.Lance([finit, travail = std::move(travail), sinon] { finit(Essaie(travail, sinon)); });
    if (!parti) finit(sinon);
  }
  /// An answer is waited for, and not for longer than kPatience. Whoever asks one question at a time may ask the next
  /// one when this is false: Pose forgets the one before, so that there are never two answers.
  bool Attend() const { return Demande_ != nullptr && Montre_() - Demande_->Depuis < kPatience; }
  /// Nothing comes any more of what was asked.
  void Oublie() { Demande_.reset(); }

 private:
  struct Demande {
    std::function<void(const Reponse&)> Rend;
    std::chrono::steady_clock::time_point Depuis;
  };

  static Reponse Essaie(const std::function<Reponse()>& travail, const Reponse& sinon) {
    try {
      return travail();
    } catch (const std::exception&) {
      return sinon;
    }
  }
  void Livre(const std::shared_ptr<Demande>& demande, const Reponse& reponse) {
    if (demande != Demande_) return;
    Demande_.reset();
    demande->Rend(reponse);
  }

  Montre Montre_;
  TravauxBornes Travaux_;
  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
  std::shared_ptr<Demande> Demande_;
};

}  // namespace vaktor
