// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/automatic_start.h"

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
  // Nobody may be there to answer a message: without a camera nothing is switched, and the timer goes on.
  coupure.Encore = !Ports_.AttendCamera();
  AttenduCamera_ = AttenduCamera_ || coupure.Encore;
  if (coupure.Encore) return;
  // Somebody may have come meanwhile and switched it on by hand.
  const bool attendu = std::exchange(AttenduCamera_, false);
  if (Arguments_.Live && !(attendu && Ports_.EstLive())) Ports_.BasculeLive();
  if (Arguments_.Alarme && !(attendu && Ports_.EstArmee())) Ports_.BasculeAlarme();
}

}  // namespace vaktor
