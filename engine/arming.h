// SPDX-License-Identifier: GPL-3.0-or-later
// The alarm between the detection and what it does: off, counting down, armed. Once armed it stays armed.
#pragma once

#include "engine/camera_control.h"
#include "engine/surveillance_ports.h"
#include "engine/surveillance_state.h"

namespace vaktor {

class ArmementAlarme {
 public:
  ArmementAlarme(const PortsSurveillance& ports, EtatSurveillance& etat, MinuteriesSurveillance& minuteries,
                 CommandeCamera& camera);

  /// One click: starts the camera if it is off, then cancels a running countdown, or disarms, or starts to count. Does
  /// nothing once the program is being closed, also when that happens while the camera is being connected.
  void BasculeAlarme();
  /// AlarmeArmee false, lamp off, Text1 shows Retard. Timer3 is not touched: a running countdown still arms.
  void DesarmeAlarme();
  /// The tick of Timer3, once a second.
  void CompteUneSeconde();
  /// The change event of Text1, also when the text is the one before: sets Retard and CompteARebours (a running
  /// countdown starts again from there) and saves. `secondes`: 0 and up; the field has cleaned its text.
  void ChangeRetard(qint32 secondes);

 private:
  const PortsSurveillance& Ports_;
  EtatSurveillance& Etat_;
  MinuteriesSurveillance& Minuteries_;
  CommandeCamera& Camera_;
};

}  // namespace vaktor
