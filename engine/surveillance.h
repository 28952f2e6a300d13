// SPDX-License-Identifier: GPL-3.0-or-later
// The surveillance engine as the rest of the program sees it: one object that owns every rule and state of detection.
#pragma once

#include <QImage>
#include <memory>

#include "engine/detection_state.h"
#include "engine/frame_surface.h"
#include "engine/surveillance_ports.h"

namespace vaktor {

class JaugeSensibilite;
class ReglesSurveillance;
class SourisZone;

/// Owner: app/. User-interface thread.
class Surveillance {
 public:
  explicit Surveillance(const PortsSurveillance& ports);
  ~Surveillance();
  Surveillance(const Surveillance&) = delete;
  Surveillance& operator=(const Surveillance&) = delete;

  /// Once, when everything is made that a tick may reach: Timer1 ticks from here on, and does nothing without a camera.
  void Lance();

  // What forms and rooms above read.
  const EtatDetection& Detection() const;
  const EtatCamera& Camera() const;
  const EtatAlarme& Alarme() const;
  SurfaceImage& Surface();
  const SurfaceImage& Surface() const;
  bool CompteAReboursEnCours() const;  ///< Timer3 is enabled
  const QImage& VuePixel() const;      ///< the small view in pixel mode, 127 by 109 pixels, RGB32

  // The switches of the main window.
  void BasculeCamera();
  bool AttendCamera();  ///< the start that nobody watches (camera_control.h)
  void BasculeAlarme();
  void DesarmeAlarme();         ///< the live page is switched off: AlarmeArmee false, lamp "LEDRED", Text1 shows
                                ///< Retard; a running countdown goes on
  void MontreDialogueFormat();  ///< BoutonGris(4)
  void MontreDialogueSource();  ///< BoutonGris(5)

  // What the mouse works on.
  JaugeSensibilite& Jauge();  ///< PictSeuil (sensitivity_gauge.h)
  SourisZone& Souris();       ///< the left button on Picture1 (detection_zone.h)

  // The rest of the window.
  void ChoisitModeZoom(bool zoom);     ///< MnuZoomView, MnuPixelView
  void CacheMoniteur();                ///< the user closed FormMonitor
  void ChangeRetard(qint32 secondes);  ///< change event of Text1: sets Retard and CompteARebours, saves
  void SuspendTic();  ///< Timer1 off, while the window is redrawn: no frame is analysed, for a second at most
  void ReprendTic();  ///< Timer1 on, whether or not the camera runs: its tick does nothing then

  // End of the program, in the order that the shutdown asks for.
  void
  DeconnectePilote();  ///< the driver is let go for good; CameraActive stays as it is. No switch does anything after
  void Arrete();       ///< AlarmeArmee false, Timer1 and Timer2 off

 private:
  std::unique_ptr<ReglesSurveillance> Regles_;
};

}  // namespace vaktor
