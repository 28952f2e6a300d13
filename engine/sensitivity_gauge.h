// SPDX-License-Identifier: GPL-3.0-or-later
// The tolerance of the comparison: set by hand on the gauge PictSeuil or found by itself, just above the noise.
#pragma once

#include "engine/surveillance_ports.h"
#include "engine/surveillance_state.h"

namespace vaktor {

class JaugeSensibilite {
 public:
  static constexpr qint32 kPartParImage = 20;  ///< one part in so many of the tolerance is searched for each new frame
  static constexpr qint32 kPasFinsParImage = 4;  ///< steps of the tracking for each new frame, at the most

  JaugeSensibilite(const PortsSurveillance& ports, EtatSurveillance& etat, Minuterie& timerSeuil);

  /// SeuilDetection takes the value, held between 1 and 7000000; the gauge is drawn and ParametresModifies set.
  void DessineSeuil(qint32 valeur);
  /// Mouse position on the gauge, in its scale: 0 to 7000000 over its width; it may lie outside. Press, move and
  /// release do the same.
  void SuitSouris(double x, bool boutonGaucheSeul);
  /// Starts the coarse search again from where the tolerance stands, also while the camera is off.
  void DoubleClic();
  /// The tick of TimerSeuil. Acts on the count of the last frame that was compared, several times on the same one but
  /// no more than so often; then the tolerance rests until the next.
  void AjusteSeuil();
  /// After each frame: one that was compared gives the ticks something to do again.
  void SuitComparaison();

 private:
  bool PeutAgir();
  void Repose();
  qint32 PasPermis() const;

  const PortsSurveillance& Ports_;
  EtatSurveillance& Etat_;
  Minuterie& TimerSeuil_;
  quint32 Comparees_ = 0;  // the frame that the ticks act on, by its number
  qint32 Points_ = 0;      // its count
  qint32 Pas_ = 0;         // steps that it has given
};

}  // namespace vaktor
