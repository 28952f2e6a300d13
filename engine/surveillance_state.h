// SPDX-License-Identifier: GPL-3.0-or-later
// The engine's own state and timers, shared by its rules. Each field has one writer or a few that its comment names.
#pragma once

#include <memory>

#include "engine/detection_state.h"
#include "engine/frame_surface.h"
#include "engine/frozen_picture.h"
#include "engine/ports/timers.h"

namespace vaktor {

struct EtatSurveillance {
  EtatDetection Detection;
  EtatCamera Camera;
  EtatAlarme Alarme;
  SurfaceImage Surface;
  ImageFigee Figee;  ///< written by the tick, forgotten with the camera
};

/// Timer2 after a start of the camera: the tolerance stays still that long.
inline constexpr qint32 kAttenteSeuilMs = 2000;

/// The timers of the main form.
struct MinuteriesSurveillance {
  std::unique_ptr<Minuterie> Timer1;         ///< the tick of surveillance
  std::unique_ptr<Minuterie> Timer2;         ///< starts TimerSeuil kAttenteSeuilMs after the camera
  std::unique_ptr<Minuterie> TimerSeuil;     ///< automatic tolerance
  std::unique_ptr<Minuterie> Timer3;         ///< enabled means: the countdown runs
  std::unique_ptr<Minuterie> FinSuspension;  ///< one shot: Timer1 comes back, whatever stands in the redraw
};

}  // namespace vaktor
