// SPDX-License-Identifier: GPL-3.0-or-later
// The switch of the camera: opens and closes the driver and brings everything that hangs on it up and down.
#pragma once

#include "engine/motion_analysis.h"
#include "engine/sensitivity_gauge.h"
#include "engine/surveillance_ports.h"
#include "engine/surveillance_state.h"

namespace vaktor {

class CommandeCamera {
 public:
  CommandeCamera(const PortsSurveillance& ports, EtatSurveillance& etat, MinuteriesSurveillance& minuteries,
                 JaugeSensibilite& jauge, AnalyseurMouvement& analyse);

  /// When the user has closed the monitor the call only brings it back. A camera that
  /// does not connect is told in a message box and leaves everything as it was. The start lets events in once, with
  /// the driver connected and CameraActive still false. From the beginning of the connection to there no timer of the
  /// engine ticks, and a call that comes in does nothing.
  void BasculeCamera();
  /// The start of a program that nobody watches, called until it says true: the camera runs. Asks nothing, shows no
  /// message and waits for nothing; as long as no picture comes that is told as a condition of the watch. A
  /// BasculeCamera that comes in between takes its place.
  bool AttendCamera();
  /// The driver's dialogs; with the camera off a message box instead. While one is open detection and countdown stand
  /// still, which is told where the system is armed.
  void MontreDialogueFormat();
  void MontreDialogueSource();
  /// End of the program: lets the driver go for good. In the middle of a connection it ends that one, and the start
  /// with it, without a message; no later call connects the driver again. CameraActive stays as it is.
  void DeconnectePilote();

 private:
  bool Demarre();
  bool ConnectePilote();
  bool Acheve();
  void OublieAttente();
  void DitAutreCamera();
  void Arrete();
  void OuvreDialogue(void (PiloteCapture::*dialogue)());
  void EteintAlarme();

  const PortsSurveillance& Ports_;
  EtatSurveillance& Etat_;
  MinuteriesSurveillance& Minuteries_;
  JaugeSensibilite& Jauge_;
  AnalyseurMouvement& Analyse_;
};

}  // namespace vaktor
