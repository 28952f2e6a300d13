// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/live_switch.h"

namespace vaktor {
namespace {

constexpr qint32 kBoutonAlarme = 1;  // Bouton(1)

}  // namespace

void InterrupteurLive::Bascule(void (PublicationLive::*allume)()) {
  if (Ports_.Moteur.Camera().ConnexionEnCours) return;  // by a click before this one
  if (!Ports_.Moteur.Camera().CameraActive) {
    Ports_.Affichage.ActiveBouton(kBoutonAlarme, false);  // the start of the camera enables it again
    Ports_.Moteur.BasculeCamera();
    Ports_.Pompe.PompeMessages();
  }
  // Closed while the camera was being connected: nobody is left who has to be told that it does not run.
  if (Ports_.Moteur.Camera().Terminee) return Ports_.Live.OublieLive();
  if (!Ports_.Moteur.Camera().CameraActive) {
    Ports_.Live.OublieLive();
    Ports_.Affichage.AnnonceCameraInactive();
    return;
  }
  Ports_.Live.EstAllume() ? Eteint() : (Ports_.Live.*allume)();
}

void InterrupteurLive::Eteint() {
  Ports_.Live.Eteint();
  Ports_.Moteur.DesarmeAlarme();
  Ports_.Pompe.PompeMessages();
  Ports_.Live.Deconnecte();
}

void InterrupteurLive::CreationPageLive() {
  if (Ports_.Reglages.ParametresModifies) Ports_.Sauvegarde.SauveParametres();
  Ports_.Pompe.PompeMessages();
  if (!Ports_.Moteur.Camera().CameraActive) return Ports_.Affichage.AnnonceCameraInactive();
  Ports_.Live.DemandePage();
}

}  // namespace vaktor
