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

void JaugeSensibilite::AjusteSeuil() {
  // Read at each tick: ticking the box takes effect on the next one, from the value and the step as they stand.
  if (!Ports_.Reglages.SeuilAuto) return;
  // A frame that was compared with itself tells nothing of the noise. While the signal is lost the tolerance would fall
  // far below it, and the first frame after that raise the alarm.
  if (Etat_.Camera.CameraActive && Etat_.Camera.ImageRepetee) return;
  qint32& seuil = Ports_.Reglages.SeuilDetection;
  if (Etat_.Detection.NbrPoints == 0) {
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
