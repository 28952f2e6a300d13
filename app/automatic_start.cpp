// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/automatic_start.h"

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
    ~Coupure() { Timer.Desactive(); }
  } const coupure{*TimerAutoStar_};
  if (Arguments_.Live) Ports_.BasculeLive();
  if (Arguments_.Alarme) Ports_.BasculeAlarme();
}

}  // namespace vaktor
