// SPDX-License-Identifier: GPL-3.0-or-later
// How many steps a frame gives comes from tests/engine/test_noisy_cameras.cpp, which runs the whole engine on cameras
// of 1 to 30 frames a second, armed from the first second on: with noise of 1 to 8 steps of each colour none alarms
// within its first five minutes, and somebody who stays for five seconds afterwards is seen. A picture with hardly any
// noise, half a step, can still fool it: so many samples differ by the same number that the tolerance cannot stop
// between them. Such a camera is watched with a tolerance that is set by hand.
#include "engine/sensitivity_gauge.h"

#include <algorithm>

#include "base/numbers.h"

namespace vaktor {

JaugeSensibilite::JaugeSensibilite(const PortsSurveillance& ports, EtatSurveillance& etat, Minuterie& timerSeuil)
    : Ports_(ports), Etat_(etat), TimerSeuil_(timerSeuil) {}

void JaugeSensibilite::DessineSeuil(qint32 valeur) {
  qint32& seuil = Ports_.Reglages.SeuilDetection;
  seuil = std::clamp(valeur, kSeuilDetectionMin, kSeuilDetectionMax);
  // The colour goes by the tolerance, bar and marker by the value as passed: beyond the ends the box clips them.
  Ports_.Affichage.DessineJauge(valeur, seuil >= kSeuilDetectionRouge);
  Ports_.Reglages.ParametresModifies = true;
}

void JaugeSensibilite::SuitSouris(double x, bool boutonGaucheSeul) {
  if (!boutonGaucheSeul) return;
  DessineSeuil(ArrondiPair(x));
  TimerSeuil_.Reveille();  // further out, more steps are allowed
}

void JaugeSensibilite::DoubleClic() {
  Etat_.Detection.PasSeuil = kPasSeuilGrossier;
  TimerSeuil_.Active();
}

// With the camera off nothing new can come: the last count stands for good.
bool JaugeSensibilite::PeutAgir() {
  if (!Etat_.Camera.CameraActive) {
    Points_ = Etat_.Detection.NbrPoints;
    return true;
  }
  if (Etat_.Detection.Comparees != Comparees_) {
    Comparees_ = Etat_.Detection.Comparees;
    Points_ = Etat_.Detection.NbrPoints;
    Pas_ = 0;
  }
  return Pas_ < PasPermis();
}

// One count, several ticks: each of them acts on it, but only so often. A step that no frame has looked at since is a
// guess, and with a slow camera there is time for a hundred between two frames: they would end far below the noise, and
// the next frame be all motion. In the coarse search as many as lower the tolerance by a twentieth are a guess that
// cannot go wrong, wherever the noise lies: it ends four or five times as far out as it spreads, and some frames
// between the first change and an alarm are looked at. In the tracking it is what a camera of 30 frames a second leaves
// time for.
qint32 JaugeSensibilite::PasPermis() const {
  if (Etat_.Detection.PasSeuil == kPasSeuilFin) return kPasFinsParImage;
  return std::max(Ports_.Reglages.SeuilDetection / (kPasSeuilGrossier * kPartParImage), 1);
}

void JaugeSensibilite::AjusteSeuil() {
  // Read at each tick: ticking the box takes effect on the next one, from the value and the step as they stand.
  if (!Ports_.Reglages.SeuilAuto) return;
  if (!PeutAgir()) return Repose();
  ++Pas_;
  qint32& seuil = Ports_.Reglages.SeuilDetection;
  if (Points_ == 0) {
    seuil = SoustraitVerifie(seuil, Etat_.Detection.PasSeuil);
  } else {
    // The first change seen ends the coarse search for good.
    Etat_.Detection.PasSeuil = kPasSeuilFin;
    seuil = AjouteVerifie(seuil, kPasSeuilFin);
  }
  seuil = std::max(seuil, kSeuilDetectionMin);
  DessineSeuil(seuil);
  if (Pas_ >= PasPermis()) Repose();
}

// Nothing happens before the next frame is compared. A hundred ticks a second for nothing are a third of what the
// program does behind hidden windows at ten frames a second. With the camera off no frame would end the rest.
void JaugeSensibilite::Repose() {
  if (Etat_.Camera.CameraActive) TimerSeuil_.Endors();
}

void JaugeSensibilite::SuitComparaison() {
  if (Etat_.Detection.Comparees != Comparees_) TimerSeuil_.Reveille();
}

}  // namespace vaktor
