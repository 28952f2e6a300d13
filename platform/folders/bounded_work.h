// Work that may block for ever, done on a thread of its own and waited for only so long.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>

namespace vaktor {

/// Starts threads that nobody joins: a thread that waits for a dead disk ends with the disk or with the process. No
/// more than kAuPlus of them at a time, so that a dead disk cannot gather them without limit. Any thread.
class TravauxBornes {
 public:
  static constexpr int kAuPlus = 32;

  /// Runs `travail`, which must own everything it uses and throw nothing. False, with nothing run, when too many run.
  bool Lance(std::function<void()> travail) {
    if (EnCours_->fetch_add(1) >= kAuPlus) {
      EnCours_->fetch_sub(1);
      return false;
    }
    std::thread([travail = std::move(travail), compte = EnCours_] {
      travail();
      compte->fetch_sub(1);
    }).detach();
    return true;
  }

  /// The result of `travail` (as above), or nothing when it is not there after `delai`.
  template <typename Resultat>
  std::optional<Resultat> Attend(std::function<Resultat()> travail, std::chrono::milliseconds delai) {
    auto promesse = std::make_shared<std::promise<Resultat>>();
    std::future<Resultat> resultat = promesse->get_future();
    if (!Lance([promesse, travail = std::move(travail)] { promesse->set_value(travail()); })) return std::nullopt;
    if (resultat.wait_for(delai) != std::future_status::ready) return std::nullopt;
    return resultat.get();
  }

 private:
  std::shared_ptr<std::atomic<int>> EnCours_ = std::make_shared<std::atomic<int>>(0);
};

}  // namespace vaktor
