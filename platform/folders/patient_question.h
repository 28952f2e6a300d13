// SPDX-License-Identifier: GPL-3.0-or-later
// A question to a disk that may never answer, asked on a thread of its own: the answer comes from the event loop, and
// before it the news that it is late.
#pragma once

#include <QTimer>
#include <atomic>
#include <chrono>
#include <exception>
#include <functional>
#include <future>
#include <list>
#include <memory>
#include <thread>
#include <utility>

#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// One question at a time; the next forgets the one before. A question that waits for a dead disk ends with the disk or
/// with the process, and there are never more than a few of these. User-interface thread, with a QCoreApplication.
template <typename Reponse>
class QuestionPatiente {
 public:
  /// Runs on the thread and owns everything it uses. `abandon` becomes true when nobody wants the answer any more.
  using Travail = std::function<Reponse(const std::atomic<bool>& abandon)>;
  using Recoit = std::function<void(const Reponse&)>;

  /// `tardive` is told after `patience` without an answer, which is then told too when it comes; `sansMoyens` in place
  /// of an answer, when the system gives no thread or the work throws, want of memory before all.
  QuestionPatiente(std::chrono::milliseconds patience, Reponse tardive, Reponse sansMoyens)
      : SansMoyens_(std::move(sansMoyens)) {
    Patience_.setSingleShot(true);
    Patience_.setInterval(patience);
    QObject::connect(&Patience_, &QTimer::timeout, &Patience_, [this, tardive = std::move(tardive)] {
      const std::shared_ptr<Question> question = EnCours_;
      if (question) question->Rend(tardive);
    });
  }

  /// Ends the threads; does not wait long for one that hangs.
  ~QuestionPatiente() {
    Oublie();
    Relais_->Coupe();
    const auto limite = std::chrono::steady_clock::now() + kAttenteFin;
    for (Fil& fil : Fils_) {
      // A thread that still waits for its disk finds the mark when it wakes, and touches nothing of ours any more.
      fil.Fini.wait_until(limite) == std::future_status::ready ? fil.Thread.join() : fil.Thread.detach();
    }
  }
  QuestionPatiente(const QuestionPatiente&) = delete;
  QuestionPatiente& operator=(const QuestionPatiente&) = delete;

  /// Throws only for want of memory, and then nothing comes.
  void Pose(Travail travail, Recoit recoit) {
    Oublie();
    RetireFinis();
    EnCours_ = std::make_shared<Question>();
    EnCours_->Rend = std::move(recoit);
    Patience_.start();
    // With so many that hang the next would hang too: it is late, and nothing of it comes any more.
    if (Fils_.size() >= kFilsAuPlus) return;
    try {
      Demarre(std::move(travail));
    } catch (...) {
      Oublie();  // whoever asked learns it by the exception, and by nothing else
      throw;
    }
  }
  /// The answer of the question that is under way comes to nobody.
  void Oublie() {
    Patience_.stop();
    if (!EnCours_) return;
    EnCours_->Abandonnee = true;
    EnCours_.reset();
  }

 private:
  static constexpr std::size_t kFilsAuPlus = 32;  // each for a request of the user's; those that hang count
  static constexpr std::chrono::milliseconds kAttenteFin{500};  // far longer than a disk that answers needs

  /// Shared with the thread.
  struct Question {
    std::atomic<bool> Abandonnee = false;
    Recoit Rend;  // of the user-interface thread alone
  };
  struct Fil {
    std::thread Thread;
    std::future<void> Fini;
  };

  void Demarre(Travail travail) {
    std::promise<void> fini;
    std::future<void> finie = fini.get_future();
    auto surLeFil = [this, relais = Relais_, question = EnCours_, sansMoyens = SansMoyens_,
                     travail = std::move(travail), fini = std::move(fini)]() mutable {
      // Out of the thread an exception would end the whole program, which is there to watch. Where even the news of it
      // finds no memory, the patience of whoever waits ends it.
      try {
        Travaille(travail, sansMoyens, question, [&](const std::shared_ptr<Reponse>& reponse) {
          // Run only while the relay, and so this object, is there.
          relais->Poste([this, question, reponse] { Livre(question, *reponse); });
        });
      } catch (...) {
      }
      travail = nullptr;
      question.reset();
      fini.set_value_at_thread_exit();
    };
    // Its place comes before it: a thread that runs and for which no memory is left would end the program.
    Fil& fil = Fils_.emplace_back(Fil{.Thread = {}, .Fini = std::move(finie)});
    try {
      fil.Thread = std::thread(std::move(surLeFil));
    } catch (const std::exception&) {
      Fils_.pop_back();
      Relais_->Poste([this, question = EnCours_] { Livre(question, SansMoyens_); });
    }
  }

  template <typename Suite>
  static void Travaille(const Travail& travail, const Reponse& sansMoyens, const std::shared_ptr<Question>& question,
                        const Suite& suite) {
    std::shared_ptr<Reponse> reponse;
    try {
      reponse = std::make_shared<Reponse>(travail(question->Abandonnee));
    } catch (...) {
      reponse = std::make_shared<Reponse>(sansMoyens);
    }
    if (!question->Abandonnee) suite(reponse);
  }

  void Livre(const std::shared_ptr<Question>& question, const Reponse& reponse) {
    if (question != EnCours_) return;
    Patience_.stop();
    EnCours_.reset();
    RetireFinis();
    question->Rend(reponse);
  }

  void RetireFinis() {
    std::erase_if(Fils_, [](Fil& fil) {
      if (fil.Fini.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return false;
      fil.Thread.join();
      return true;
    });
  }

  const Reponse SansMoyens_;
  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
  std::shared_ptr<Question> EnCours_;
  std::list<Fil> Fils_;
  QTimer Patience_;
};

}  // namespace vaktor
