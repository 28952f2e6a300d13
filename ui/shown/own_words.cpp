#include "ui/shown/own_words.h"

#include "texts/language.h"

namespace vaktor {

namespace {
QString Choisit(qint32 langue, const char* francais, const char* anglais) {
  return ChoisitLangue(langue, QString::fromUtf8(francais), QString::fromUtf8(anglais));
}
}  // namespace

QString MotAvis(qint32 langue, AvisMoniteur avis) {
  switch (avis) {
    case AvisMoniteur::kSignalPerdu:
      return Choisit(langue, "Signal perdu", "Signal lost");
    case AvisMoniteur::kDetectionArretee:
      return Choisit(langue, "Détection arrêtée", "Detection stopped");
    case AvisMoniteur::kAucun:
      break;
  }
  return {};
}

MotsLampe MotsLampeAlarme(qint32 langue) {
  return {Choisit(langue, "Témoin de l'alarme", "Alarm lamp"), Choisit(langue, "Éteint", "Off"),
          Choisit(langue, "Compte à rebours", "Counting down"), Choisit(langue, "Alarme active", "Alarm active")};
}

MotsLampe MotsLampeSurveillance(qint32 langue) {
  return {Choisit(langue, "Témoin de la surveillance", "Live cam lamp"), Choisit(langue, "Éteint", "Off"),
          Choisit(langue, "Connexion", "Connecting"), Choisit(langue, "Surveillance active", "Live cam active")};
}

QString AideBarre(qint32 langue) {
  return Choisit(langue, "Représentation graphique du nombre de pixels en mouvement",
                 "Graphical representation of moving pixels");
}

QString LibelleEssaiFtp(qint32 langue) { return Choisit(langue, "Essayer", "Try"); }

QString AideEssaiFtp(qint32 langue) {
  return Choisit(langue, "Essayer ces paramètres maintenant, sans les enregistrer",
                 "Try these parameters now, without saving them");
}

QString AideSigneSante(qint32 langue) {
  return Choisit(langue, "Ouvre la liste de ce qui ne va pas", "Opens the list of what is wrong");
}

QString MessageEchecInattendu(qint32 langue, const QString& description) {
  return Choisit(langue, "Une opération a échoué : %1\nVaktor continue.", "An operation failed: %1\nVaktor goes on.")
      .arg(description);
}

QString MessageDemarrageImpossible(qint32 langue, const QString& description) {
  return Choisit(langue, "Vaktor ne peut pas démarrer : %1", "Vaktor cannot start: %1").arg(description);
}

QString MessageDossierImpossible(qint32 langue, const QString& dossier) {
  return Choisit(langue, "le dossier « %1 » ne peut pas être créé.", "the folder \"%1\" cannot be made.").arg(dossier);
}

}  // namespace vaktor
