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

/// The zone drawn with the mouse, and moved and sized with the keys.
///
/// Mouse events on Picture1, left button, in pixels of the frame; they may lie outside the picture and are kept as
/// they come. The analysis works with the half-drawn zone of the moment.
class SourisZone {
 public:
  explicit SourisZone(EtatSurveillance& etat) : Etat_(etat) {}

  void Appuie(double x, double y);
  void Deplace(double x, double y);
  void Relache(double x, double y);

  // The keys, in pixels. They keep the zone within the picture, its corners in order and each side at kCoteMin or more:
  // nobody is to lose a zone that they do not see. No side that meets another resets it.
  static constexpr qint32 kCoteMin = 8;
  void Pousse(qint32 dx, qint32 dy);  ///< the whole zone, as far as there is room
  void Etire(qint32 dx, qint32 dy);   ///< its right and lower edge
  void Remet();                       ///< to the whole picture, as a click does

 private:
  void SuitCoin(double x, double y);
  void Redresse();
  void Montre();

  EtatSurveillance& Etat_;
};

}  // namespace vaktor
