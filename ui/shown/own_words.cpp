// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/shown/own_words.h"

#include "texts/phrase.h"

namespace vaktor {

QString MotAvis(Langue langue, AvisMoniteur avis) {
  switch (avis) {
    case AvisMoniteur::kSignalPerdu:
      return Phrase{"Signal perdu", "Signal lost"}.Dit(langue);
    case AvisMoniteur::kConnexion:
      return Phrase{"Connexion...", "Connecting..."}.Dit(langue);
    case AvisMoniteur::kDetectionArretee:
      return Phrase{"Détection arrêtée", "Detection stopped"}.Dit(langue);
    case AvisMoniteur::kAucun:
      break;
  }
  return {};
}

MotsLampe MotsLampeAlarme(Langue langue) {
  return {Phrase{"Témoin de l'alarme", "Alarm lamp"}.Dit(langue), Phrase{"Éteint", "Off"}.Dit(langue),
          Phrase{"Compte à rebours", "Counting down"}.Dit(langue), Phrase{"Alarme active", "Alarm active"}.Dit(langue)};
}

MotsLampe MotsLampeSurveillance(Langue langue) {
  return {Phrase{"Témoin de la surveillance", "Live cam lamp"}.Dit(langue), Phrase{"Éteint", "Off"}.Dit(langue),
          Phrase{"Connexion", "Connecting"}.Dit(langue), Phrase{"Surveillance active", "Live cam active"}.Dit(langue)};
}

QString AideBarre(Langue langue) {
  return Phrase{"Représentation graphique du nombre de pixels en mouvement",
                "Graphical representation of moving pixels"}
      .Dit(langue);
}

QString MotVueReduite(Langue langue) { return Phrase{"Vue réduite", "Small view"}.Dit(langue); }

QString AideTouchesJauge(Langue langue) {
  return Phrase{"Flèches : régler ; Entrée : chercher de nouveau", "Arrows set it; Enter lets it search again"}.Dit(
      langue);
}

QString LibelleEssaiFtp(Langue langue) { return Phrase{"Essayer", "Try"}.Dit(langue); }

QString AideEssaiFtp(Langue langue) {
  return Phrase{"Essayer ces paramètres maintenant, sans les enregistrer",
                "Try these parameters now, without saving them"}
      .Dit(langue);
}

QString LibelleSession(Langue langue) {
  return Phrase{"Surveiller dès la connexion", "Watch as soon as I log in"}.Dit(langue);
}

QString AideSession(Langue langue) {
  return Phrase{"À chaque ouverture de session, Vaktor démarre, allume la caméra et arme après le retard (/alarm)",
                "At each login Vaktor starts, switches the camera on and arms after the delay (/alarm)"}
      .Dit(langue);
}

QString MessageSessionImpossible(Langue langue) {
  return Phrase{"Le dossier des programmes au démarrage de votre bureau ne peut pas être écrit. Rien n'a changé.",
                "The folder of the programs that your desktop starts cannot be written. Nothing has changed."}
      .Dit(langue);
}

QString RaisonSansCamera(Langue langue) {
  return Phrase{"Indisponible tant que la caméra ne tourne pas : cliquez sur [Caméra on].",
                "Not available until the camera runs: click on [Camera on]."}
      .Dit(langue);
}

QString AideSigneSante(Langue langue) {
  return Phrase{"Ouvre la liste de ce qui ne va pas", "Opens the list of what is wrong"}.Dit(langue);
}

QString MessageEchecInattendu(Langue langue, const QString& description) {
  return Phrase{"Une opération a échoué : %1\nVaktor continue.", "An operation failed: %1\nVaktor goes on."}.Dit(
      langue, description);
}

QString MessageDemarrageImpossible(Langue langue, const QString& description) {
  return Phrase{"Vaktor ne peut pas démarrer : %1", "Vaktor cannot start: %1"}.Dit(langue, description);
}

QString MessageDossierImpossible(Langue langue, const QString& dossier) {
  return Phrase{"le dossier « %1 » ne peut pas être créé.", "the folder \"%1\" cannot be made."}.Dit(langue, dossier);
}

}  // namespace vaktor
