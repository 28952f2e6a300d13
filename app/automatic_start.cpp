// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/automatic_start.h"

#include <exception>
#include <utility>

namespace vaktor {
namespace {

constexpr qint32 kDelaiMs = 1000;

}  // namespace

DemarrageAuto::DemarrageAuto(const PortsDemarrageAuto& ports)
    : Ports_(ports),
      TimerAutoStar_(ports.Minuteries.CreeMinuterie(QStringLiteral("TimerAutoStar"), kDelaiMs, [this] { Demarre(); })) {
}

void DemarrageAuto::Lance(const ArgumentsAuto& arguments) {
  Arguments_ = arguments;
  Relance();
}

void DemarrageAuto::Relance() {
  if (Arguments_.Alarme || Arguments_.Live) TimerAutoStar_->Active();
}

// The live page first: where it starts the camera, the alarm finds it running.
void DemarrageAuto::Demarre() {
  if (Ports_.EnPause()) return;  // it comes again
  // One shot, also when a call below fails: a switch must not be thrown again each second.
  struct Coupure {
    Minuterie& Timer;
    bool Encore;
    ~Coupure() {
      if (!Encore) Timer.Desactive();
    }
  } coupure{*TimerAutoStar_, false};
  // Nobody may be there to answer a message: without a camera nothing is switched, and the timer goes on; also where
  // asking for it fails, for want of memory or threads.
  const bool attendu = std::exchange(AttenduCamera_, true);
  coupure.Encore = true;
  if (!Ports_.AttendCamera()) return;
  coupure.Encore = AttenduCamera_ = false;
  // Where it was waited for somebody may have come meanwhile, and switched things on by hand.
  std::exception_ptr echec;  // of the page, which is no reason to leave the alarm off
  try {
    if (Arguments_.Live && !(attendu && Ports_.EstLive())) Ports_.BasculeLive();
  } catch (...) {
    echec = std::current_exception();
  }
  if (Arguments_.Alarme && !(attendu && Ports_.EstArmee())) Ports_.BasculeAlarme();
  if (echec) std::rethrow_exception(echec);
}

}  // namespace vaktor
