// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/live_publishing.h"

#include <exception>

#include "companions/live_stamp.h"

namespace vaktor {

namespace {

constexpr qsizetype kLongueurHeure = 8;

}  // namespace

void PublicationLive::OublieLive() {
  Panne_.Oublie();
  Ports_.Etat.SurveillanceEnCours = false;
  Ports_.Etat.PageCoupee.reset();
  Ports_.Etat.CoupeFrames();
}

void PublicationLive::CoupeLive() { Ports_.Etat.CoupeFrames(); }

void PublicationLive::PerdCompagnon() {
  if (!Ports_.Etat.SurveillanceEnCours) return;
  // A page that is being made only holds the frames back.
  Ports_.Etat.PageInterrompue = Ports_.Etat.PageInterrompue || Ports_.Etat.LiveActif || Ports_.Etat.PageAttendue;
  Ports_.Etat.LiveActif = false;
  MontreConnexion();
}

void PublicationLive::RetrouveCompagnon() {
  if (!Ports_.Etat.SurveillanceEnCours) return;
  MontreConnexion();
  Ports_.Commandes.EnvoiFTP(Commande::kConnexion);
  if (Ports_.Etat.PageAttendue) Ports_.Commandes.EnvoiFTP(Commande::kPage);
}

void PublicationLive::MontreConnexion() {
  Ports_.Affichage.MontreLampeSurveillance(Lampe::kRougeAllumee);
  Ports_.Liaison.MontreStatut(Libelle::kEnConnexion);
}

void PublicationLive::Eteint() {
  OublieLive();
  Ports_.Affichage.MontreLampeSurveillance(Lampe::kRouge);
}

void PublicationLive::Deconnecte() {
  Ports_.Liaison.MontreStatut(Libelle::kSurveillanceInactive);
  Ports_.Commandes.EnvoiFTP(Commande::kDeconnexion);
}

void PublicationLive::Allume() {
  Ports_.Etat.SurveillanceEnCours = true;
  Ports_.Etat.PageCoupee.reset();
  if (ParametresManquent()) {
    if (Ports_.Liaison.DemandeParametresSite()) Ports_.Liaison.MontrePageFtp();
    OublieLive();
    return;
  }
  MontreConnexion();
  Ports_.Commandes.EnvoiFTP(Commande::kConnexion);
}

void PublicationLive::AllumeSansPersonne() {
  if (ParametresManquent())
    return Ports_.Liaison.MontreStatutLitteral({"Il manque des paramètres FTP", "FTP settings are missing"});
  Allume();
}

bool PublicationLive::ParametresManquent() const {
  const ChampsSite champs = Ports_.LitChamps();
  // It is the user name, and not the web address, that is compared with "http://": a web field left at its start value
  // passes. Kept on purpose, settings that worked with it must go on working.
  return champs.TxtPass.isEmpty() || champs.TxtUserName == QLatin1String("http://") || champs.TxtHtml.isEmpty() ||
         champs.TxtFtp == QLatin1String("ftp.") || champs.TxtFtp.isEmpty();
}

QString PublicationLive::FormateTimbre(QString heure) {
  const qsizetype deuxPoints = heure.indexOf(QLatin1Char(':'));
  if (deuxPoints == 0 || deuxPoints == 1) heure.prepend(QLatin1Char('0'));
  // A 12-hour format is cut like any other: what stands in the first eight characters is the stamp.
  heure = heure.left(kLongueurHeure);
  return heure.left(2) + QLatin1Char('h') + heure.mid(3, 2) + QLatin1Char('m') + heure.right(2);
}

// The engine asks before it compares, and a failure ends what its frame does: the rule as it was given. With a camera
// of a frame or two a second every frame is due for the page, and a full disk would make the alarm blind and dumb for
// good. So that rule is kept for a second, as it is for photos; then the page grows old in silence, and its age is what
// is told.
void PublicationLive::PublieLive(const ImageCamera& image) {
  const qint32 tic = Ports_.Temps.CompteTics();
  if (!Panne_.EssaiDu(tic)) return;
  try {
    EcritLive(image);
  } catch (const std::exception&) {
    Panne_.Note(tic);
    if (!Panne_.Installee(tic)) throw;
    return;
  }
  Panne_.Oublie();
  // No flow control: LiveActif stays, and the next frame comes when the interval has passed, taken or not.
  if (Ports_.Etat.LiveActif) Ports_.Commandes.EnvoiFTP(Commande::kSurveillance);
}

void PublicationLive::EcritLive(const ImageCamera& image) {
  QImage tampon = image.Entiere();  // shared until the stamp goes on
  const QString heure = FormateTimbre(Ports_.Temps.DonneHeureTexte());
  PoseTimbre(tampon, Ports_.Timbre.DessineTimbre(heure));
  Ports_.Ecrivain.EnregistreJPEG(tampon, Ports_.Dossiers.Donnees + QStringLiteral("/Temp/Live.jpg"),
                                 Ports_.Reglages.QualiteJpeg);
}

void PublicationLive::DemandePage() {
  if (!Ports_.Etat.LiveActif) {
    Ports_.Liaison.MontreStatut(Libelle::kVaktorPasConnecte);
    return;
  }
  Ports_.Etat.PageAttendue = true;
  Ports_.Etat.LiveActif = false;  // stops the frames; the companion's "UplOK" or "ConOK" lets them flow again
  Ports_.Liaison.MontreStatut(Libelle::kEnCreation);
  Ports_.Commandes.EnvoiFTP(Commande::kPage);
}

void PublicationLive::TestPageLive() {
  Ports_.Navigateur.OuvreAdresse(Ports_.Reglages.AdresseHtml + QStringLiteral("live.html"));
}

}  // namespace vaktor
