// SPDX-License-Identifier: GPL-3.0-or-later
// Questions to one file whose disk may not answer, one behind the other.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "platform/folders/bounded_work.h"

namespace vaktor {

/// Each piece of work runs on a thread of its own and is waited for no longer than kPatience, the one before it
/// included. One that has not come back goes on for as long as its disk lets it, and no other begins before: so nothing
/// that was written late comes behind something newer. Copies share the line. Any thread.
class TravauxEnFile {
 public:
  using Duree = std::chrono::milliseconds;
  static constexpr Duree kPatience{700};
  /// While one has not come back.
  static constexpr Duree kPatienceCourte{150};

  /// The result of `travail`, which must own everything it uses; nothing when it has not come in time, has not begun,
  /// or has thrown.
  template <typename Resultat>
  std::optional<Resultat> Attend(std::function<Resultat()> travail) const {
    std::shared_ptr<Tour> tour = Prend();
    if (!tour) return std::nullopt;
    auto rendu = Travaux_.Attend<Resultat>([tour = std::move(tour), travail = std::move(travail)] { return travail(); },
                                           kPatience);
    if (!rendu) NoteMuette();
    return rendu;
  }

 private:
  struct File {
    std::mutex Verrou;
    std::condition_variable Libre;
    bool Occupee = false;
    bool Muette = false;  // somebody has waited for the present one in vain
  };

  /// Of one piece of work; ends with it, or with the failure to begin it.
  class Tour {
   public:
    explicit Tour(std::shared_ptr<File> file) : File_(std::move(file)) {}
    ~Tour() {
      const std::lock_guard garde(File_->Verrou);
      File_->Occupee = File_->Muette = false;
      File_->Libre.notify_one();
    }
    Tour(const Tour&) = delete;
    Tour& operator=(const Tour&) = delete;

   private:
    std::shared_ptr<File> File_;
  };

  std::shared_ptr<Tour> Prend() const {
    std::unique_lock garde(File_->Verrou);
    const Duree patience = File_->Muette ? kPatienceCourte : kPatience;
    if (!File_->Libre.wait_for(garde, patience, [this] { return !File_->Occupee; })) {
      File_->Muette = true;
      return nullptr;
    }
    auto tour = std::make_shared<Tour>(File_);
    File_->Occupee = true;
    return tour;
  }

  // Where it only threw, or no thread was to be had, its turn is over by now.
  void NoteMuette() const {
    const std::lock_guard garde(File_->Verrou);
    File_->Muette = File_->Occupee;
  }

  mutable TravauxBornes Travaux_;
  std::shared_ptr<File> File_ = std::make_shared<File>();
};

}  // namespace vaktor
