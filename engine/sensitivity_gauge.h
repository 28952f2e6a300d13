// The tolerance of the comparison: set by hand on the gauge PictSeuil or found by itself, just above the noise.
#pragma once

#include "engine/surveillance_ports.h"
#include "engine/surveillance_state.h"

namespace vaktor {

class JaugeSensibilite {
 public:
  static constexpr qint32 kPasGrossier = 10000;  ///< coarse search, from a start or a double click on
  static constexpr qint32 kPasFin = 1000;        ///< tracking, from the first frame with changes on
  static constexpr qint32 kTicsRepetesMax = 12;  ///< ticks that still act on a frame while no newer one comes

  JaugeSensibilite(const PortsSurveillance& ports, EtatSurveillance& etat, Minuterie& timerSeuil);

  /// SeuilDetection takes the value, held between 1 and 7000000; the gauge is drawn and ParametresModifies set.
  void DessineSeuil(qint32 valeur);
  /// Mouse position on the gauge, in its scale. Press, move and release do the same.
  void SuitSouris(double x, bool boutonGaucheSeul);
  /// Starts the coarse search again from where the tolerance stands, also while the camera is off.
  void DoubleClic();
  /// The tick of TimerSeuil. Acts on the count of the last finished analysis, several times on the same one; while no
  /// new frame comes, on that of the last new one, kTicsRepetesMax times.
  void AjusteSeuil();

 private:
  bool SuitPoints();

  const PortsSurveillance& Ports_;
  EtatSurveillance& Etat_;
  Minuterie& TimerSeuil_;
  qint32 Points_ = 0;  // the count to go by
  qint32 TicsRepetes_ = 0;
};

}  // namespace vaktor
