#include "platform/base/qt_timers.h"

#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace vaktor {
namespace {

// Shorter ones would keep the processor from resting, and nobody could see the difference.
constexpr qint32 kPeriodeMinimale = 10;
// The longest that the grab of a frame may hold the thread, and a little more.
constexpr qint64 kRattrapageMaximal = 12;

class MinuterieQt : public Minuterie {
 public:
  MinuterieQt(const QString& nom, qint32 millisecondes, std::function<void()> tic) : Tic_(std::move(tic)) {
    Chrono_.setObjectName(nom);
    Chrono_.setTimerType(Qt::PreciseTimer);
    MinuterieQt::ChangeIntervalle(millisecondes);
    QObject::connect(&Chrono_, &QTimer::timeout, &Chrono_, [this] { Sonne(); });
  }

  // QTimer restarts a running timer by itself when its interval changes.
  void ChangeIntervalle(qint32 millisecondes) override {
    Intervalle_ = std::max(millisecondes, 1);
    Chrono_.setInterval(std::max(Intervalle_, kPeriodeMinimale));
    Depuis_.start();
  }
  qint32 Intervalle() const override { return Intervalle_; }

  // QTimer::start() on a running timer would begin its interval anew.
  void Active() override {
    if (Chrono_.isActive()) return;
    Depuis_.start();
    Chrono_.start();
  }
  void Desactive() override { Chrono_.stop(); }
  bool EstActive() const override { return Chrono_.isActive(); }

 private:
  // Qt keeps one timer from ticking inside its own tick, but takes a timer that was stopped and started again in the
  // meantime for a new one; so the guard is kept here.
  void Sonne() {
    if (EnTic_) return;
    const QScopedValueRollback<bool> garde(EnTic_, true);
    for (qint64 tics = TicsDus(); tics > 0 && Chrono_.isActive(); --tics) {
      Tic_();
      if (Intervalle_ >= kPeriodeMinimale) return;  // it has made itself a slower one
    }
  }

  // The grab holds the thread until the next frame is there, so that the event loop turns once a frame: a timer that is
  // to be as fast as can be would tick at the camera's rate.
  qint64 TicsDus() {
    if (Intervalle_ >= kPeriodeMinimale) return 1;
    return std::clamp<qint64>((Depuis_.restart() + kPeriodeMinimale / 2) / kPeriodeMinimale, 1, kRattrapageMaximal);
  }

  std::function<void()> Tic_;
  QTimer Chrono_;
  QElapsedTimer Depuis_;  // the last tick, of a timer below the shortest period
  qint32 Intervalle_ = 1;
  bool EnTic_ = false;
};

}  // namespace

std::unique_ptr<Minuterie> FabriqueMinuteriesQt::CreeMinuterie(const QString& nom, qint32 millisecondes,
                                                               std::function<void()> tic) {
  return std::make_unique<MinuterieQt>(nom, millisecondes, std::move(tic));
}

}  // namespace vaktor
