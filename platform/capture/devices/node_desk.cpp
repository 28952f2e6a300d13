// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/devices/node_desk.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

#include "platform/widgets/live_wait.h"

namespace vaktor {
namespace {

using std::chrono::milliseconds;

// Nearly every device answers at once. Until then nobody sees that a window stands still, and no busy pointer flickers.
constexpr milliseconds kAttenteMuette{40};

// What the answers of one round are awaited by.
class Attendus {
 public:
  explicit Attendus(qsizetype nombre) : Restants_(nombre) {}

  void Vient() {
    const std::lock_guard verrou(Verrou_);
    --Restants_;
    Change_.notify_all();
  }
  bool Attend(milliseconds limite) {
    std::unique_lock verrou(Verrou_);
    return Change_.wait_for(verrou, limite, [this] { return Restants_ <= 0; });
  }

 private:
  std::mutex Verrou_;
  std::condition_variable Change_;
  qsizetype Restants_;
};

// What is handed in at a desk.
struct Depot {
  std::function<void()> Pose;
  std::shared_ptr<Attendus> Tour;
  std::atomic<bool> Repondu = false;
  std::atomic<bool> Abandonne = false;
};

}  // namespace

// Its thread lives while there is something to answer and holds the desk alive.
class GuichetsNoeuds::Guichet : public std::enable_shared_from_this<Guichet> {
 public:
  void Depose(const std::shared_ptr<Depot>& depot) {
    if (!Accueille(depot)) depot->Tour->Vient();  // not answered
  }
  void Desespere() {
    const std::lock_guard verrou(Verrou_);
    Muet_ = Ouvert_;
  }
  bool EstMuet() const {
    const std::lock_guard verrou(Verrou_);
    return Muet_;
  }

 private:
  // False where the system gives no thread: the desk is as it was, and the next question may find one.
  bool Accueille(const std::shared_ptr<Depot>& depot) {
    const std::lock_guard verrou(Verrou_);
    File_.push_back(depot);
    if (Ouvert_) return true;
    try {
      std::thread([moi = shared_from_this()] { moi->Sert(); }).detach();
      Ouvert_ = true;
    } catch (const std::exception&) {
      File_.pop_back();
    }
    return Ouvert_;
  }
  void Sert() {
    while (const std::shared_ptr<Depot> depot = Prochain()) {
      depot->Repondu = Repond(*depot);
      depot->Tour->Vient();
    }
  }
  // Who throws, for want of memory, has not answered. Out of this thread it would end the program.
  static bool Repond(const Depot& depot) {
    try {
      if (!depot.Abandonne) depot.Pose();
      return true;
    } catch (const std::exception&) {
      return false;
    }
  }
  std::shared_ptr<Depot> Prochain() {
    const std::lock_guard verrou(Verrou_);
    if (File_.empty()) {
      Ouvert_ = Muet_ = false;
      return nullptr;
    }
    std::shared_ptr<Depot> depot = std::move(File_.front());
    File_.pop_front();
    return depot;
  }

  mutable std::mutex Verrou_;
  std::deque<std::shared_ptr<Depot>> File_;
  bool Ouvert_ = false;
  bool Muet_ = false;  // somebody gave up waiting, and the thread has not come back since
};

GuichetsNoeuds::GuichetsNoeuds() = default;
GuichetsNoeuds::~GuichetsNoeuds() = default;

QList<bool> GuichetsNoeuds::Pose(const QList<Question>& questions, milliseconds limite) {
  const auto tour = std::make_shared<Attendus>(questions.size());
  QList<std::shared_ptr<Depot>> depots;
  for (const Question& question : questions) {
    std::shared_ptr<Guichet>& guichet = Guichets_[question.Noeud];
    if (!guichet) guichet = std::make_shared<Guichet>();
    auto depot = std::make_shared<Depot>();
    depot->Pose = question.Pose;
    depot->Tour = tour;
    depots.append(depot);
    if (guichet->EstMuet())
      tour->Vient();  // nobody waits for it twice, and no second thread is lost to it
    else
      guichet->Depose(depot);
  }
  if (!tour->Attend(std::min(limite, kAttenteMuette))) AttendVivant([&] { return tour->Attend({}); }, limite);

  QList<bool> venues;
  for (qsizetype i = 0; i < depots.size(); ++i) {
    depots[i]->Abandonne = true;
    venues.append(depots[i]->Repondu);
    if (!venues.last()) Guichets_.at(questions[i].Noeud)->Desespere();
  }
  return venues;
}

QStringList GuichetsNoeuds::Muets() const {
  QStringList muets;
  for (const auto& [noeud, guichet] : Guichets_)
    if (guichet->EstMuet()) muets.append(noeud);
  return muets;
}

}  // namespace vaktor
