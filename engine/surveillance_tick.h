// The heartbeat: every 30 ms one new frame onto the surface, compared, shown.
#pragma once

#include "engine/motion_analysis.h"
#include "engine/surveillance_ports.h"
#include "engine/surveillance_state.h"

namespace vaktor {

/// Owner: the engine. The tick of Timer1.
class TicSurveillance {
 public:
  TicSurveillance(const PortsSurveillance& ports, EtatSurveillance& etat, AnalyseurMouvement& analyse);

  /// One tick; nothing happens while the camera is off. From the grab on every failure ends the tick without a word,
  /// and the next tick runs normally; where frame upon frame is not compared, the notice over the picture
  /// says so.
  /// Only the copy to the enlarged view, before that, lets its failures out.
  void TraiteTic();

 private:
  void TraiteImage();
  void PoseImage();
  AvisMoniteur Avis() const;
  void MontreZoom();
  void ReposeBoite();

  const PortsSurveillance& Ports_;
  EtatSurveillance& Etat_;
  AnalyseurMouvement& Analyse_;
  qint32 TicsSansComparaison_ = 0;  // the last ones, without a gap; no further than what makes the notice
};

}  // namespace vaktor
