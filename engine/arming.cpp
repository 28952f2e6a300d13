// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/arming.h"

#include "base/numbers.h"

namespace vaktor {
namespace {

constexpr qint32 kSurvolAlarme = 18;       // the identifier of the button for the hover sound
constexpr qint32 kBoutonSurveillance = 2;  // Bouton(2)

}  // namespace

ArmementAlarme::ArmementAlarme(const PortsSurveillance& ports, EtatSurveillance& etat,
                               MinuteriesSurveillance& minuteries, CommandeCamera& camera)
    : Ports_(ports), Etat_(etat), Minuteries_(minuteries), Camera_(camera) {}

void ArmementAlarme::BasculeAlarme() {
  // The program is being closed, or the camera is being connected: a click then means nothing.
  if (Etat_.Camera.Terminee || Etat_.Camera.ConnexionEnCours) return;
  Ports_.Sons.SurvolSon(kSurvolAlarme);
  if (!Etat_.Camera.CameraActive) {
    // The start enables the button again; when there is none it stays disabled.
    Ports_.Affichage.ActiveBouton(kBoutonSurveillance, false);
    Camera_.BasculeCamera();
    Ports_.Pompe.PompeMessages();
    if (!Etat_.Camera.CameraActive || Etat_.Camera.Terminee) return;
  }
  if (Minuteries_.Timer3->EstActive()) {
    Minuteries_.Timer3->Desactive();
    Ports_.Affichage.EcritRetard(Ports_.Reglages.Retard);
    Etat_.Alarme.AlarmeArmee = false;
    Etat_.Alarme.CompteARebours = Ports_.Reglages.Retard;
    Ports_.Affichage.MontreLampeAlarme(Lampe::kRouge);
    return;
  }
  if (Etat_.Alarme.AlarmeArmee) {
    DesarmeAlarme();  // the label follows with the next analysis
    return;
  }
  Ports_.Affichage.MontreLampeAlarme(Lampe::kRougeAllumee);
  Minuteries_.Timer3->Active();
}

void ArmementAlarme::DesarmeAlarme() {
  Etat_.Alarme.AlarmeArmee = false;
  Ports_.Affichage.MontreLampeAlarme(Lampe::kRouge);
  Ports_.Affichage.EcritRetard(Ports_.Reglages.Retard);
}

void ArmementAlarme::CompteUneSeconde() {
  qint32& reste = Etat_.Alarme.CompteARebours;
  reste = SoustraitVerifie(reste, 1);
  if (reste >= 1 || Etat_.Alarme.AlarmeArmee) {
    Ports_.Affichage.MontreCompteARebours(reste);
    return;
  }
  Etat_.Alarme.AlarmeArmee = true;
  reste = Ports_.Reglages.Retard;  // the number in Text1: each change of it lands there
  Ports_.Affichage.MontreLampeAlarme(Lampe::kVerte);
  Minuteries_.Timer3->Desactive();
}

void ArmementAlarme::ChangeRetard(qint32 secondes) {
  Ports_.Reglages.Retard = secondes;
  Etat_.Alarme.CompteARebours = secondes;
  Ports_.Reglages.ParametresModifies = true;
  Ports_.Sauvegarde.SauveParametres();
}

}  // namespace vaktor
