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
  if (boutonGaucheSeul) DessineSeuil(ArrondiPair(x));
}

void JaugeSensibilite::DoubleClic() {
  Etat_.Detection.PasSeuil = kPasGrossier;
  TimerSeuil_.Active();
}

// A frame that was compared with itself tells nothing of the noise: the count of the last new one stands for as many
// ticks as a slow camera leaves between two frames, then the tolerance rests. While the signal is lost it would fall
// far below the noise, and the first frame after that raise the alarm.
bool JaugeSensibilite::SuitPoints() {
  if (Etat_.Camera.CameraActive && Etat_.Camera.ImageRepetee) return ++TicsRepetes_ <= kTicsRepetesMax;
  Points_ = Etat_.Detection.NbrPoints;
  TicsRepetes_ = 0;
  return true;
}

void JaugeSensibilite::AjusteSeuil() {
  // Read at each tick: ticking the box takes effect on the next one, from the value and the step as they stand.
  if (!Ports_.Reglages.SeuilAuto) return;
  if (!SuitPoints()) return;
  qint32& seuil = Ports_.Reglages.SeuilDetection;
  if (Points_ == 0) {
    seuil = SoustraitVerifie(seuil, Etat_.Detection.PasSeuil);
  } else {
    // The first change seen ends the coarse search for good.
    Etat_.Detection.PasSeuil = kPasFin;
    seuil = AjouteVerifie(seuil, kPasFin);
  }
  seuil = std::max(seuil, kSeuilDetectionMin);
  DessineSeuil(seuil);
}

}  // namespace vaktor
