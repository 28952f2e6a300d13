// SPDX-License-Identifier: GPL-3.0-or-later
// The heartbeat: at the later of "30 ms have passed" and "a new frame is there" a frame goes onto the surface, is
// compared and shown.
#pragma once

#include <functional>

#include "engine/motion_analysis.h"
#include "engine/surveillance_ports.h"
#include "engine/surveillance_state.h"

namespace vaktor {

/// Owner: the engine. The tick of Timer1, and what wakes it.
class TicSurveillance {
 public:
  /// `reveil`: what the driver is given to call when a frame comes; ends in TraiteReveil.
  TicSurveillance(const PortsSurveillance& ports, EtatSurveillance& etat, AnalyseurMouvement& analyse,
                  std::function<void()> reveil);

  /// One tick; nothing happens while the camera is off. A new frame is analysed. Where there is none the driver is
  /// asked to wake us when one comes, and the thread is free: nothing that is shown changes but the notice of a lost
  /// signal. From the grab on every failure ends the tick without a word, and the next frame runs normally; where frame
  /// upon frame is not compared, the notice over the picture says so. Only the copy to the enlarged view, before that,
  /// lets its failures out.
  void TraiteTic();
  /// The frame that a tick found missing has come: it is analysed at once. So each tick gives at most one analysis, and
  /// a camera of 30 frames a second is analysed at its own rate, whatever lies between 33 and 30 ms.
  void TraiteReveil();
  /// Asked every 15 s by a timer of its own, Timer2: a frame that waits and is still not taken at the next time is told
  /// as a detection that stands still, whatever it is that keeps the ticks away. The next frame that is analysed takes
  /// that back. `premier`: the first time since the camera was started.
  void VerifieMarche(bool premier);

 private:
  void TraiteNouvelleImage();
  bool TraiteImage();
  bool PoseImage();
  void CompteComparaison(bool vue);
  bool EstArretee() const;
  void DitEtat();
  void SuitFigee();
  void DitFigee();
  void MontreZoom();
  void ReposeCadre();

  const PortsSurveillance& Ports_;
  EtatSurveillance& Etat_;
  AnalyseurMouvement& Analyse_;
  const std::function<void()> Reveil_;
  quint32 DebutNonComparees_ = 0;  // the counter at the first of the frames that were not compared
  quint32 DureeNonComparees_ = 0;  // ms from it to the last of them
  quint32 Traitees_ = 0;           // frames that were analysed to their end, well or not
  quint32 TraiteesVues_ = 0;       // as VerifieMarche found it last
  bool AttendaitVue_ = false;      // a frame waited then
  bool EnCours_ = false;
};

}  // namespace vaktor
