// SPDX-License-Identifier: GPL-3.0-or-later
// The live switch of the main window. It knows both the camera and the live page, which do not know each other: the
// engine asks whether the page is on and has its frames published, the page takes frames and asks for none.
#pragma once

#include "companions/live_publishing.h"
#include "engine/ports/event_pump.h"
#include "engine/ports/surveillance_display.h"
#include "engine/surveillance.h"
#include "settings/parameters.h"
#include "settings/saving.h"

namespace vaktor {

struct PortsInterrupteurLive {
  const Parametres& Reglages;
  SauvegardeParametres& Sauvegarde;
  Surveillance& Moteur;
  PublicationLive& Live;
  AffichageSurveillance& Affichage;  ///< Bouton(1), the message about the camera
  PompeEvenements& Pompe;
};

/// Owner: app/. User-interface thread.
class InterrupteurLive {
 public:
  explicit InterrupteurLive(const PortsInterrupteurLive& ports) : Ports_(ports) {}

  /// Bouton(2). On: the camera is started first
  /// where it is off, and without one the page stays off. Off: the alarm is disarmed too; the camera goes on, and so
  /// does a countdown that runs. Lets events in after either; says and sends nothing once the program is being closed.
  void BasculeLive() { Bascule(&PublicationLive::Allume); }
  /// The same for the start argument "/surve": where parameters of the site are missing no message asks for them.
  void BasculeLiveSansPersonne() { Bascule(&PublicationLive::AllumeSansPersonne); }
  /// BoutonGris(2): has the page made, with settings that are saved.
  void CreationPageLive();

 private:
  void Bascule(void (PublicationLive::*allume)());
  void Eteint();

  const PortsInterrupteurLive Ports_;
};

}  // namespace vaktor
