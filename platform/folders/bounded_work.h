// SPDX-License-Identifier: GPL-3.0-or-later
// Work that may block for ever, done on a thread of its own and waited for only so long.
#pragma once

#include <atomic>
#include <chrono>
#include <exception>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace vaktor {

/// Starts threads that nobody joins: a thread that waits for a dead disk ends with the disk or with the process. No
/// more than kAuPlus of them at a time, so that a dead disk cannot gather them without limit. Any thread.
class TravauxBornes {
 public:
  static constexpr int kAuPlus = 32;

  /// Runs `travail`, which must own everything it uses. What it throws, want of memory before all, ends it alone and
  /// not the program. False, with nothing run, when too many run or the system gives no thread.
  bool Lance(std::function<void()> travail) {
    if (EnCours_->fetch_add(1) >= kAuPlus) {
      EnCours_->fetch_sub(1);
      return false;
    }
    try {
      std::thread([travail = std::move(travail), compte = EnCours_] {
        Essaie(travail);
        compte->fetch_sub(1);
      }).detach();
    } catch (const std::exception&) {
      EnCours_->fetch_sub(1);
      return false;
    }
    return true;
  }

  /// The result of `travail` (as above), or nothing when it is not there after `delai` or `travail` has thrown.
  template <typename Resultat>
  std::optional<Resultat> Attend(std::function<Resultat()> travail, std::chrono::milliseconds delai) {
    auto promesse = std::make_shared<std::promise<std::optional<Resultat>>>();
    std::future<std::optional<Resultat>> resultat = promesse->get_future();
    const auto lance = [promesse, travail = std::move(travail)] {
      std::optional<Resultat> rendu;
      Essaie([&] { rendu = travail(); });
      promesse->set_value(std::move(rendu));
    };
    if (!Lance(lance)) return std::nullopt;
    if (resultat.wait_for(delai) != std::future_status::ready) return std::nullopt;
    return resultat.get();
  }

 private:
  // Out of a thread an exception would end the whole program, in the middle of watching.
  template <typename Travail>
  static void Essaie(const Travail& travail) {
    try {
      travail();
    } catch (...) {
    }
  }

  std::shared_ptr<std::atomic<int>> EnCours_ = std::make_shared<std::atomic<int>>(0);
};

}  // namespace vaktor
