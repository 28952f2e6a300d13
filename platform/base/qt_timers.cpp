#include "platform/base/qt_timers.h"

#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace vaktor {
namespace {

class MinuterieQt : public Minuterie {
 public:
  MinuterieQt(const QString& nom, qint32 millisecondes, std::function<void()> tic) : Tic_(std::move(tic)) {
    Chrono_.setObjectName(nom);
    Chrono_.setTimerType(Qt::PreciseTimer);
    MinuterieQt::ChangeIntervalle(millisecondes);
    QObject::connect(&Chrono_, &QTimer::timeout, &Chrono_, [this] { Sonne(); });
  }

  // QTimer restarts a running timer by itself when its interval changes. An interval of 0 would tick without end.
  void ChangeIntervalle(qint32 millisecondes) override { Chrono_.setInterval(std::max(millisecondes, 1)); }
  qint32 Intervalle() const override { return Chrono_.interval(); }

  // QTimer::start() on a running timer would begin its interval anew.
  void Active() override {
    if (!Chrono_.isActive()) Chrono_.start();
  }
  void Desactive() override { Chrono_.stop(); }
  bool EstActive() const override { return Chrono_.isActive(); }

 private:
  // Qt keeps one timer from ticking inside its own tick, but takes a timer that was stopped and started again in the
  // meantime for a new one; so the guard is kept here.
  void Sonne() {
    if (EnTic_) return;
    const QScopedValueRollback<bool> garde(EnTic_, true);
    Tic_();
  }

  std::function<void()> Tic_;
  QTimer Chrono_;
  bool EnTic_ = false;
};

}  // namespace

std::unique_ptr<Minuterie> FabriqueMinuteriesQt::CreeMinuterie(const QString& nom, qint32 millisecondes,
                                                               std::function<void()> tic) {
  return std::make_unique<MinuterieQt>(nom, millisecondes, std::move(tic));
}

}  // namespace vaktor
