// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/camera_control.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include "engine/detection_zone.h"

namespace vaktor {
namespace {

constexpr qint32 kSurvolCamera = 17;       // the identifier of the button for the hover sound
constexpr qint32 kBoutonAlarme = 1;        // Bouton(1)
constexpr qint32 kBoutonSurveillance = 2;  // Bouton(2)

}  // namespace

CommandeCamera::CommandeCamera(const PortsSurveillance& ports, EtatSurveillance& etat,
                               MinuteriesSurveillance& minuteries, JaugeSensibilite& jauge, AnalyseurMouvement& analyse)
    : Ports_(ports), Etat_(etat), Minuteries_(minuteries), Jauge_(jauge), Analyse_(analyse) {}

void CommandeCamera::BasculeCamera() {
  if (Etat_.Camera.ConnexionEnCours || Etat_.Camera.Terminee) return;  // it is being switched already, or never again
  Ports_.Sons.SurvolSon(kSurvolCamera);
  if (Etat_.Camera.MoniteurCache) {
    // The first click after the monitor was closed only shows it again.
    Ports_.Affichage.MontreMoniteur();
    Etat_.Camera.MoniteurCache = false;
    return;
  }
  Ports_.Affichage.MontreMoniteur();
  if (Etat_.Camera.CameraActive) {
    Arrete();
  } else if (!Demarre()) {
    return;
  }
  // At a start no frame has come yet: the zone takes the size of the run before, and the first frame of another size
  // moves it.
  RemetZoneCamera(Etat_);
}

bool CommandeCamera::Demarre() {
  OublieAttente();
  // To the end of the pump: clicks come in meanwhile, and a second one is not to begin a second start.
  const QScopedValueRollback<bool> enCours(Etat_.Camera.ConnexionEnCours, true);
  return ConnectePilote() && Acheve();
}

// The driver lets the window live while it waits for a camera: the program may be closed in the middle, and then there
// is nobody left to be told of a camera that was not found.
bool CommandeCamera::ConnectePilote() {
  const auto avis = qScopeGuard([this] { Ports_.Affichage.MontreAvis(AvisMoniteur::kAucun); });
  Ports_.Affichage.MontreAvis(AvisMoniteur::kConnexion);
  const bool connecte = Ports_.Pilote.Connecte();
  if (!connecte && !Etat_.Camera.Terminee) Ports_.Affichage.AnnonceCameraIntrouvable(Ports_.Pilote.Explication());
  return connecte && !Etat_.Camera.Terminee;
}

// A connected driver becomes a camera that is watched.
bool CommandeCamera::Acheve() {
  Ports_.Pompe.PompeMessages();
  if (Etat_.Camera.Terminee) return false;  // closed in that pump, which let the driver go
  if (Ports_.Reglages.SeuilAuto) Ports_.Reglages.SeuilDetection = kSeuilDetectionMax;
  Jauge_.DessineSeuil(Ports_.Reglages.SeuilDetection);
  Etat_.Detection.PasSeuil = kPasSeuilGrossier;
  Etat_.Camera.NonComparees = 0;
  Analyse_.OublieReprise();
  Etat_.Camera.CameraActive = true;
  Minuteries_.Timer2->ChangeIntervalle(kAttenteSeuilMs);
  Minuteries_.Timer1->Active();
  Minuteries_.Timer2->Active();
  Ports_.Affichage.ActiveBouton(kBoutonAlarme, true);
  Ports_.Affichage.ActiveBouton(kBoutonSurveillance, true);
  DitAutreCamera();
  return true;
}

bool CommandeCamera::AttendCamera() {
  if (Etat_.Camera.CameraActive) return true;
  if (Etat_.Camera.EnPause() || Etat_.Camera.Terminee) return false;
  if (!Etat_.Camera.Attendue) {
    Ports_.Sons.SurvolSon(kSurvolCamera);
    Ports_.Affichage.MontreMoniteur();
    Etat_.Camera.MoniteurCache = false;
    Ports_.Affichage.MontreAvis(AvisMoniteur::kConnexion);
    Ports_.Pilote.ConnecteSansAttendre();
    Etat_.Camera.Attendue = true;  // where that failed it is asked again
  }
  if (!Ports_.Pilote.ImagePrete()) {
    Ports_.Sante.Signale(Condition::kCameraAttendue, Ports_.Pilote.Explication());
    return false;
  }
  OublieAttente();
  const QScopedValueRollback<bool> enCours(Etat_.Camera.ConnexionEnCours, true);
  if (!Acheve()) return false;
  RemetZoneCamera(Etat_);
  return true;
}

void CommandeCamera::OublieAttente() {
  if (!Etat_.Camera.Attendue) return;
  Etat_.Camera.Attendue = false;
  Ports_.Affichage.MontreAvis(AvisMoniteur::kAucun);
  Ports_.Sante.Leve(Condition::kCameraAttendue);
}

void CommandeCamera::DitAutreCamera() {
  const QString autre = Ports_.Pilote.AutreCamera();
  autre.isEmpty() ? Ports_.Sante.Leve(Condition::kAutreCamera) : Ports_.Sante.Signale(Condition::kAutreCamera, autre);
}

void CommandeCamera::Arrete() {
  Etat_.Camera.CameraActive = false;
  Minuteries_.Timer1->Desactive();
  Minuteries_.Timer2->Desactive();
  Minuteries_.Timer3->Desactive();
  Minuteries_.TimerSeuil->Desactive();
  Ports_.Pilote.Deconnecte();
  Etat_.Surface.Retire();
  // No tick comes any more to take these away.
  Ports_.Affichage.MontreAvis(AvisMoniteur::kAucun);
  Ports_.Sante.Leve(Condition::kSignalPerdu);
  Ports_.Sante.Leve(Condition::kDetectionArretee);
  Ports_.Sante.Leve(Condition::kAutreCamera);
  Etat_.Figee.Oublie();
  Ports_.Sante.Leve(Condition::kImageFigee);
  Ports_.Sante.Leve(Condition::kImageNoire);
  Ports_.Affichage.MontreLampeSurveillance(Lampe::kRouge);
  Ports_.Affichage.MontreLampeAlarme(Lampe::kRouge);
  if (Ports_.SurArretCamera) Ports_.SurArretCamera();
  EteintAlarme();
}

void CommandeCamera::EteintAlarme() {
  Etat_.Alarme.AlarmeArmee = false;
  Ports_.Affichage.MontreSurveillanceInactive();
  Ports_.Affichage.NommeAlarmeInactive();  // a red "Intrusion" leaves its red behind until the next frame
  Minuteries_.Timer3->Desactive();
  Ports_.Affichage.EcritRetard(Ports_.Reglages.Retard);
  Etat_.Alarme.CompteARebours = Ports_.Reglages.Retard;
}

void CommandeCamera::MontreDialogueFormat() { OuvreDialogue(&PiloteCapture::MontreDialogueFormat); }

void CommandeCamera::MontreDialogueSource() { OuvreDialogue(&PiloteCapture::MontreDialogueSource); }

// A dialog of the driver runs an event loop of its own, in which timers would go on: frames would be taken from a
// camera that is just being set up, and its changes of light and size would raise the alarm. Who leaves it open on an
// armed system is watched over by nobody; the first tick afterwards says what is true then.
void CommandeCamera::OuvreDialogue(void (PiloteCapture::*dialogue)()) {
  if (Etat_.Camera.ConnexionEnCours) return;
  if (!Etat_.Camera.CameraActive) return Ports_.Affichage.AnnonceCameraInactive();
  const QScopedValueRollback<bool> ouvert(Etat_.Camera.DialogueOuvert, true);
  // The countdown stands still too: who has gone meanwhile takes it for armed.
  const bool dit = Etat_.Alarme.AlarmeArmee || Minuteries_.Timer3->EstActive();
  const auto leve = qScopeGuard([&] {
    if (dit) Ports_.Sante.Leve(Condition::kDetectionArretee);
  });
  if (dit) Ports_.Sante.Signale(Condition::kDetectionArretee);
  (Ports_.Pilote.*dialogue)();
  DitAutreCamera();
}

void CommandeCamera::DeconnectePilote() {
  Etat_.Camera.Terminee = true;
  const bool tenu = Etat_.Camera.CameraActive || Etat_.Camera.ConnexionEnCours || Etat_.Camera.Attendue;
  if (tenu) Ports_.Pilote.Deconnecte();
}

}  // namespace vaktor
