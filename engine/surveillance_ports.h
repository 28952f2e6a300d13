// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that the engine is given from outside, in one bundle.
#pragma once

#include <functional>

#include "engine/ports/alarm_actions.h"
#include "engine/ports/capture_driver.h"
#include "engine/ports/clock.h"
#include "engine/ports/event_pump.h"
#include "engine/ports/interface_sounds.h"
#include "engine/ports/surveillance_display.h"
#include "engine/ports/timers.h"
#include "health/ports/health_report.h"
#include "settings/parameters.h"
#include "settings/saving.h"

namespace vaktor {

/// All references outlive the engine.
struct PortsSurveillance {
  Parametres& Reglages;
  SauvegardeParametres& Sauvegarde;
  PiloteCapture& Pilote;
  FabriqueMinuteries& Minuteries;
  Horloge& Temps;
  PompeEvenements& Pompe;
  SonsInterface& Sons;
  ActionsAlarme& Actions;
  LiaisonLive& Live;
  AffichageSurveillance& Affichage;
  RapportSante& Sante;
  /// The camera has been switched off: what hangs on it elsewhere goes off with it. Called before the alarm goes off.
  std::function<void()> SurArretCamera = {};
};

}  // namespace vaktor
