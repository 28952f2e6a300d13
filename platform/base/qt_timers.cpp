// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/qt_timers.h"

#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace vaktor {
namespace {

// Shorter ones would keep the processor from resting, and nobody could see the difference.
constexpr qint32 kPeriodeMinimale = 10;

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
  }
  qint32 Intervalle() const override { return Intervalle_; }

  // QTimer::start() on a running timer would begin its interval anew.
  void Active() override {
    Active_ = true;
    Reveille();
  }
  void Desactive() override {
    Active_ = false;
    Chrono_.stop();
  }
  bool EstActive() const override { return Active_; }
  void Endors() override { Chrono_.stop(); }
  void Reveille() override {
    if (Active_ && !Chrono_.isActive()) Chrono_.start();
  }

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
  qint32 Intervalle_ = 1;
  bool Active_ = false;  // Chrono_ runs, or sleeps
  bool EnTic_ = false;
};

}  // namespace

std::unique_ptr<Minuterie> FabriqueMinuteriesQt::CreeMinuterie(const QString& nom, qint32 millisecondes,
                                                               std::function<void()> tic) {
  return std::make_unique<MinuterieQt>(nom, millisecondes, std::move(tic));
}

}  // namespace vaktor
