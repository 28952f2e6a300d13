// SPDX-License-Identifier: GPL-3.0-or-later
// A whole engine on fakes, ready to be switched on. What tests of the engine and of the rooms above start from.
#pragma once

#include "engine/surveillance.h"
#include "fakes/fake_alarm_actions.h"
#include "fakes/fake_capture_driver.h"
#include "fakes/fake_event_pump.h"
#include "fakes/fake_health_report.h"
#include "fakes/fake_interface_sounds.h"
#include "fakes/fake_saving.h"
#include "fakes/fake_surveillance_display.h"
#include "fakes/journal.h"
#include "fakes/virtual_clock.h"
#include "fakes/virtual_timers.h"

namespace vaktor::faux {

/// The parts are public: a test turns the fakes' knobs and reads what they kept.
struct BancSurveillance {
  BancSurveillance() {
    Affichage.ChangeRetard = [this](qint32 secondes) { Engin.ChangeRetard(secondes); };
    Affichage.TexteRetard = QString::number(Reglages.Retard);
    Engin.Lance();
  }
  BancSurveillance(const BancSurveillance&) = delete;
  BancSurveillance& operator=(const BancSurveillance&) = delete;

  faux::Journal Journal;
  Parametres Reglages;
  HorlogeVirtuelle Horloge;
  TempsVirtuel Temps{Horloge};
  SauvegardeFausse Sauvegarde{Journal, Reglages};
  PiloteFaux Pilote{Journal};
  PompeFausse Pompe{Journal};
  SonsFaux Sons{Journal};
  ActionsFausses Actions{Journal};
  LiaisonLiveFausse Live{Journal};
  AffichageFaux Affichage{Journal};
  SanteFausse Sante;
  Surveillance Engin{PortsSurveillance{Reglages, Sauvegarde, Pilote, Temps, Horloge, Pompe, Sons, Actions, Live,
                                       Affichage, Sante, [this] { Live.OublieLive(); }}};
};

}  // namespace vaktor::faux
