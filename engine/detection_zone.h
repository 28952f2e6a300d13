// SPDX-License-Identifier: GPL-3.0-or-later
// The zone that the user draws on the frame surface. Three events reset it to the whole picture, each in its own way.
#pragma once

#include "engine/surveillance_state.h"

namespace vaktor {

/// The start and the stop of the camera: (1, 1) to the surface's size.
void RemetZoneCamera(EtatSurveillance& etat);
/// The surface is to have this size now: left edge 0, right and bottom edges the size. The top edge stays, on purpose:
/// a zone whose top was drawn keeps it through a change of format.
void SuitTailleSurface(EtatSurveillance& etat, QSize taille);

/// Mouse events on Picture1, left button, in pixels of the frame; they may lie outside the picture and are kept as
/// they come. The analysis works with the half-drawn zone of the moment.
class SourisZone {
 public:
  explicit SourisZone(EtatSurveillance& etat) : Etat_(etat) {}

  void Appuie(double x, double y);
  void Deplace(double x, double y);
  void Relache(double x, double y);

 private:
  void SuitCoin(double x, double y);

  EtatSurveillance& Etat_;
};

}  // namespace vaktor
