// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/mail_module.h"

#include <QDateTime>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include "modules/mail/failure_advice.h"

namespace vaktor {
namespace {

constexpr qint64 kMemeInstantMs = 1000;  // a photo is written a moment before its intrusion is reported

}  // namespace

ModuleMail::ModuleMail(const ContexteModule& contexte, const PortsMail& ports)
    : Contexte_(contexte),
      Ports_(ports),
      Sac_(ports.DossierSac),
      Retard_(Sac_),
      Veille_(ports.DossierVeille, Sac_, Retard_, ports.Marque, contexte.Journal),
      TimerRecolte_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerRecolte"), kRecolte, [this] { Recolte(); })),
      TimerPause_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerPause"), kPauseEntreSeries,
                                                    [this] { TimerPause_->Desactive(); })),
      TimerVeille_(
          contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerVeille"), kRepriseVeille, [this] { PrendVeille(); })),
      TimerAttente_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerAttente"), kRegardAttente,
                                                      [this] { RegardeAttente(); })),
      TimerFin_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerFin"), kFinMax, [this] { Contexte_.Quitte(); })),
      Poste_(ports.OuvrePoste([this](const RapportEnvoi& rapport) { PrendRapport(rapport); })) {
  TimerAttente_->Active();
}

void ModuleMail::PrendReglages(const ReglagesModule& reglages) {
  const ReglagesCourriel nouveaux = TraduitReglages(reglages.Valeurs, Contexte_.Dossiers, Ports_.Autorites);
  if (SansAdresse_ && !(nouveaux == Reglages_)) {
    SansAdresse_ = false;
    TimerPause_->Desactive();
  }
  if (!(nouveaux.Envoi == Reglages_.Envoi)) Refuse_ = 0;  // tried again: it waits in the box like any other
  Reglages_ = nouveaux;
  for (const QString& secret : DonneSecrets(Reglages_.Envoi)) {
    Contexte_.Journal.CacheSecret(secret);
    Contexte_.Etat.CacheSecret(secret);
  }
  Poste_->ChangeReglages(Reglages_.Envoi);
  ReglagesRecus_ = true;
  PrendVeille();
}

void ModuleMail::Enregistre(Inscription /*comment*/) { PrendVeille(); }

void ModuleMail::ExecuteCommande(Commande commande) {
  if (commande == Commande::kVeille) PrendVeille();
  if (commande != Commande::kIntrusion) return;
  DerniereIntrusion_ = Ports_.Maintenant();
  if (ResteDeLaSerie_ > 0 || TimerPause_->EstActive()) return;
  CommenceSerie();
}

void ModuleMail::CommenceSerie() {
  if (Reglages_.NombreMail < 1) return;
  if (!Reglages_.PeutEcrire()) {
    SansAdresse_ = true;
    TimerPause_->Active();
    Signale({.Cause = CauseEchec::kIncomplet});
    return;
  }
  // What is above the cap would only wait in the outbox for the next hour.
  ResteDeLaSerie_ = std::min(Reglages_.NombreMail, PlafondHoraire::kCourrielsParHeure);
  CommenceCourriel();
}

void ModuleMail::CommenceCourriel() {
  EnCours_ = {};
  // The newest report: the second mail of a row shows what went on after the first.
  EnCours_.FaitA = DerniereIntrusion_;
  EnCours_.Nom = QStringLiteral("%1-%2-%3").arg(Sac_.DonneRang(EnCours_.FaitA), Ports_.Marque).arg(++Fait_);
  EnCours_.Expediteur = Reglages_.Adresses.Expediteur;
  EnCours_.Destinataires = Reglages_.Adresses.Destinataires;
  Recoltes_ = 0;
  const int erreur = PoseRecette(Sac_, EnCours_,
                                 {.Sujet = Reglages_.Sujet,
                                  .Corps = Reglages_.Corps,
                                  .DossierPhotos = Reglages_.DossierPhotos,
                                  .NombrePhoto = Reglages_.NombrePhoto});
  if (erreur == 0) {
    Contexte_.Journal.Note(QStringLiteral("mail %1 made").arg(EnCours_.Nom));
    TimerRecolte_->Active();
  } else {
    SignaleDisque(erreur);
    ResteDeLaSerie_ = 0;
    TimerPause_->Active();
  }
}

void ModuleMail::Recolte() {
  const QList<PhotoConnue> photos =
      PrendPhotos(Reglages_.DossierPhotos, EnCours_.FaitA, Reglages_.NombrePhoto, kOctetsPhotosMax).Photos;
  const bool comble = photos.size() >= Reglages_.NombrePhoto &&
                      std::all_of(photos.begin(), photos.end(),
                                  [this](const PhotoConnue& p) { return p.Instant > EnCours_.FaitA - kMemeInstantMs; });
  if (comble || ++Recoltes_ >= kRecoltes) AcheveCourriel();
}

void ModuleMail::AcheveCourriel() {
  TimerRecolte_->Desactive();
  PublieCourriel();
  Poste_->Reveille();
  if (--ResteDeLaSerie_ > 0)
    CommenceCourriel();
  else
    TimerPause_->Active();
}

void ModuleMail::PublieCourriel() {
  const Publication suite = Retard_.Publie(EnCours_.Nom, EnCours_.FaitA);
  for (const int erreur : {suite.ErreurPhotos, suite.Erreur})
    if (erreur != 0) SignaleDisque(erreur);
}

void ModuleMail::PrendVeille() {
  if (!ReglagesRecus_ || EnFin_) return;
  const PriseVeille prise = Veille_.Prend(Reglages_, Ports_.Maintenant());
  if (prise.Illisible) Contexte_.Etat.Signale(ComposeAvisVeille(Ports_.DossierVeille));
  if (prise.SansAdresse) Signale({.Cause = CauseEchec::kIncomplet});
  if (prise.Erreur != 0) SignaleDisque(prise.Erreur);
  if (prise.Pris > 0) Poste_->Reveille();
  prise.Reste ? TimerVeille_->Active() : TimerVeille_->Desactive();
  SuitAttente();
}

void ModuleMail::RegardeAttente() {
  if (Retard_.Reessaie() > 0) Poste_->Reveille();
  SuitAttente();
}

void ModuleMail::SuitAttente() {
  std::optional<qint64> plusAncien;
  for (const std::optional<qint64>& depuis : {Sac_.PlusAncien(), Retard_.PlusAncien(), Veille_.PlusAncien()})
    if (depuis) plusAncien = std::min(*depuis, plusAncien.value_or(*depuis));
  // A mail that is refused for good waits for other settings. It counts until another one is taken: then it was this
  // mail's own fault, and no sign that none arrives.
  if (Refuse_ != 0) plusAncien = std::min(Refuse_, plusAncien.value_or(Refuse_));
  Contexte_.Etat.NoteChamp(QStringLiteral("waiting_since"),
                           plusAncien ? EtatModule::EcritInstant(*plusAncien) : QString());
}

void ModuleMail::PrendRapport(const RapportEnvoi& rapport) {
  const ResultatEnvoi& r = rapport.Resultat;
  const QString suite = r.Accepte     ? QStringLiteral("accepted")
                        : r.Definitif ? QStringLiteral("given up")
                                      : QStringLiteral("again in %1 s").arg(rapport.ProchainEssaiDans / 1000);
  Contexte_.Journal.Note(QStringLiteral("mail %1: %2 %3").arg(rapport.Nom, suite, r.MotsServeur));
  if (r.Accepte && r.MotsServeur.isEmpty())
    Contexte_.Etat.Efface();
  else
    Signale(r);
  if (r.Accepte) Refuse_ = 0;
  if (r.Definitif && r.Cause != CauseEchec::kAbandonne && Refuse_ == 0) Refuse_ = Ports_.Maintenant();
  SuitAttente();
}

void ModuleMail::Signale(const ResultatEnvoi& resultat) {
  ResultatEnvoi r = resultat;
  if (r.Accepte) r.Cause = CauseEchec::kDestinataireRefuse;  // one of several
  Contexte_.Etat.Signale(ComposeAvis(r, Reglages_.Envoi));
}

void ModuleMail::SignaleDisque(int erreur) {
  const QString mots = QString::fromLocal8Bit(std::strerror(erreur));
  Contexte_.Journal.Note(QStringLiteral("the outbox cannot be written: ") + mots);
  Contexte_.Etat.Signale(ComposeAvisDisque(Ports_.DossierSac, mots));
}

void ModuleMail::Termine() {
  EnFin_ = true;
  TimerVeille_->Desactive();
  TimerRecolte_->Desactive();
  if (ResteDeLaSerie_ > 0) PublieCourriel();
  ResteDeLaSerie_ = 0;
  TimerPause_->Active();  // no further mail
  TimerFin_->Active();
  Poste_->Arrete([this] { Contexte_.Quitte(); });
}

}  // namespace vaktor
