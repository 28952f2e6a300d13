// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/mail_module.h"

#include <QDateTime>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include "modules/mail/failure_advice.h"
#include "modules/mail/row_pause.h"

namespace vaktor {
namespace {

constexpr qint64 kMemeInstantMs = 1000;  // a photo is written a moment before its intrusion is reported

}  // namespace

ModuleMail::ModuleMail(const ContexteModule& contexte, const PortsMail& ports)
    : Contexte_(contexte),
      Ports_(ports),
      Sac_(ports.DossierSac),
      Retard_(Sac_, Photos_),
      Veille_(ports.DossierVeille, Sac_, Retard_, ports.Marque, contexte.Journal),
      TimerRecolte_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerRecolte"), kRecolte, [this] { Recolte(); })),
      TimerPause_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerPause"), kPauseEntreSeries,
                                                    [this] {
                                                      TimerPause_->Desactive();
                                                      TimerPause_->ChangeIntervalle(kPauseEntreSeries);
                                                    })),
      TimerVeille_(
          contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerVeille"), kRepriseVeille, [this] { PrendVeille(); })),
      TimerAttente_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerAttente"), kRegardAttente,
                                                      [this] { RegardeAttente(); })),
      TimerFin_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerFin"), kFinMax, [this] { Contexte_.Quitte(); })),
      Poste_(ports.OuvrePoste([this](const RapportEnvoi& rapport) { PrendRapport(rapport); })) {
  TimerAttente_->Active();
  Sac_.TientReserve();
  if (const qint32 reste = DonneResteDePause(Ports_.DossierSac, Ports_.Maintenant(), kPauseEntreSeries); reste > 0) {
    TimerPause_->ChangeIntervalle(reste);
    TimerPause_->Active();
  }
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
  DernierRapport_ = DonneCompteur();
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
  PrisDeLaSerie_.clear();
  CommenceCourriel();
}

RecetteCourriel ModuleMail::DonneRecette() const {
  return {.Sujet = Reglages_.Sujet,
          .Corps = Reglages_.Corps,
          .DossierPhotos = Reglages_.DossierPhotos,
          .NombrePhoto = Reglages_.NombrePhoto,
          .Sauf = PrisDeLaSerie_,
          .Ardoise = Reglages_.Ardoise,
          .GardePhotos = Reglages_.GardePhotos,
          .Parlee = Reglages_.Parlee};
}

void ModuleMail::CommenceCourriel() {
  EnCours_ = {};
  // The newest report: the second mail of a row shows what went on after the first.
  EnCours_.FaitA = DerniereIntrusion_;
  EnCours_.Nom = QStringLiteral("%1-%2-%3").arg(Sac_.DonneRang(EnCours_.FaitA), Ports_.Marque).arg(++Fait_);
  EnCours_.Expediteur = Reglages_.Adresses.Expediteur;
  EnCours_.Destinataires = Reglages_.Adresses.Destinataires;
  Recoltes_ = 0;
  Ouvert_ = DernierRapport_ = DonneCompteur();
  const int erreur = PoseRecette(Sac_, EnCours_, DonneRecette());
  if (erreur == 0) {
    Contexte_.Journal.Note(QStringLiteral("mail %1 made").arg(EnCours_.Nom));
    TimerRecolte_->Active();
  } else {
    SignaleDisque(erreur);
    ConfieSansPhotos();
    AcheveSerie();
  }
}

void ModuleMail::AcheveSerie() {
  ResteDeLaSerie_ = 0;
  TimerPause_->Active();
  NotePause(Ports_.DossierSac, Ports_.Maintenant());
}

void ModuleMail::Confie(const CourrielEnAttente& courriel, const QByteArray& message) {
  if (EnMemoire_.contains(courriel.Nom)) return;
  Contexte_.Journal.Note(QStringLiteral("mail %1 goes from memory").arg(courriel.Nom));
  EnMemoire_.insert(courriel.Nom, courriel.FaitA);
  Poste_->Confie(courriel, message);
}

void ModuleMail::ConfieSansPhotos() {
  Confie(EnCours_, ComposeMessage({.Expediteur = EnCours_.Expediteur,
                                   .Destinataires = EnCours_.Destinataires,
                                   .Sujet = Reglages_.Sujet,
                                   .Corps = ComposeCorpsSansPhoto(DonneRecette(), EnCours_.FaitA),
                                   .Date = QDateTime::fromMSecsSinceEpoch(EnCours_.FaitA),
                                   .Identifiant = EnCours_.Nom,
                                   .Pieces = {}}));
}

bool ModuleMail::EstComble() {
  const std::optional<ChoixPhotos> lu =
      Photos_.Prend(Reglages_.DossierPhotos, EnCours_.FaitA, Reglages_.NombrePhoto, kOctetsPhotosMax, PrisDeLaSerie_);
  return lu && lu->Photos.size() >= Reglages_.NombrePhoto &&
         std::all_of(lu->Photos.begin(), lu->Photos.end(),
                     [this](const PhotoConnue& p) { return p.Instant > EnCours_.FaitA - kMemeInstantMs; });
}

// By the counter: a clock that is set meanwhile changes nothing. A large folder is not looked through each time, once
// the first second has shown that photos come slowly.
void ModuleMail::Recolte() {
  const quint32 maintenant = DonneCompteur();
  const bool regarde = ++Recoltes_ <= kRecoltesVives || Recoltes_ % kRecoltesVives == 0;
  const bool fini = maintenant - Ouvert_ >= kOuvertMax || maintenant - DernierRapport_ >= kCalme;
  if (fini || (regarde && EstComble())) AcheveCourriel();
}

void ModuleMail::AcheveCourriel() {
  TimerRecolte_->Desactive();
  PublieCourriel();
  Poste_->Reveille();
  if (--ResteDeLaSerie_ > 0)
    CommenceCourriel();
  else
    AcheveSerie();
}

void ModuleMail::PublieCourriel() {
  const Publication suite = Retard_.Publie(EnCours_.Nom, EnCours_.FaitA);
  for (const int erreur : {suite.ErreurPhotos, suite.Erreur})
    if (erreur != 0) SignaleDisque(erreur);
  if (suite.Muet) {
    Contexte_.Journal.Note(QStringLiteral("mail %1: the disk of the photos does not answer").arg(EnCours_.Nom));
    Contexte_.Etat.Signale(ComposeAvisPhotos(Reglages_.DossierPhotos));
  }
  PrisDeLaSerie_ += suite.Photos;
  if (suite.Erreur != 0) ConfieSansPhotos();
}

void ModuleMail::PrendVeille() {
  if (!ReglagesRecus_ || EnFin_) return;
  const PriseVeille prise = Veille_.Prend(Reglages_, Ports_.Maintenant());
  if (prise.Illisible) Contexte_.Etat.Signale(ComposeAvisVeille(Ports_.DossierVeille));
  if (prise.SansAdresse) Signale({.Cause = CauseEchec::kIncomplet});
  if (prise.Abandonne) Signale({.Definitif = true, .Cause = CauseEchec::kAbandonne});
  if (prise.Erreur != 0) SignaleDisque(prise.Erreur);
  for (const auto& [courriel, message] : prise.DeMemoire) Confie(courriel, message);
  if (prise.Pris > 0) Poste_->Reveille();
  prise.Reste ? TimerVeille_->Active() : TimerVeille_->Desactive();
  SuitAttente();
}

void ModuleMail::RegardeAttente() {
  Sac_.TientReserve();
  if (Retard_.Reessaie() > 0) Poste_->Reveille();
  if (!EnMemoire_.isEmpty())
    for (const CourrielEnAttente& courriel : Sac_.Liste()) EnMemoire_.remove(courriel.Nom);  // the disk has it now
  SuitAttente();
}

void ModuleMail::SuitAttente() {
  std::optional<qint64> courriel;
  std::optional<qint64> message;
  // Folders that cannot be listed at this moment are not empty: what is known of them stands.
  if (Sac_.LitPlusAncien(courriel, Ports_.Marque) != 0 || Veille_.LitPlusAncien(message) != 0) return;
  std::optional<qint64> plusAncien;
  for (const std::optional<qint64>& depuis : {courriel, message, Retard_.PlusAncien()})
    if (depuis) plusAncien = std::min(*depuis, plusAncien.value_or(*depuis));
  for (const qint64 depuis : EnMemoire_) plusAncien = std::min(depuis, plusAncien.value_or(depuis));
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
  if (r.Accepte && EnMemoire_.remove(rapport.Nom) > 0) Veille_.NoteParti(rapport.Nom);
  if (r.Cause == CauseEchec::kAbandonne) EnMemoire_.remove(rapport.Nom);
  if (r.Accepte) Contexte_.Etat.NoteChamp(QStringLiteral("accepted"), EtatModule::EcritInstant(Ports_.Maintenant()));
  // Given up, or damaged and put aside, it waits for nothing any more.
  const bool attend = r.Cause != CauseEchec::kAbandonne && r.Cause != CauseEchec::kFichier;
  if (r.Definitif && attend && Refuse_ == 0) Refuse_ = Ports_.Maintenant();
  SuitAttente();
}

void ModuleMail::Signale(const ResultatEnvoi& resultat) {
  ResultatEnvoi r = resultat;
  if (r.Accepte && r.Cause == CauseEchec::kAucune) r.Cause = CauseEchec::kDestinataireRefuse;  // one of several
  Contexte_.Etat.Signale(ComposeAvis(r, Reglages_.Envoi));
}

void ModuleMail::SignaleDisque(int erreur) {
  const QString mots = QString::fromLocal8Bit(std::strerror(erreur));
  Contexte_.Journal.Note(QStringLiteral("the outbox cannot be written: ") + mots);
  Contexte_.Etat.Signale(ComposeAvisDisque(Ports_.DossierSac, mots));
}

void ModuleMail::SignalePerte(const QString& nom) {
  Contexte_.Journal.Note(QStringLiteral("mail %1 is in memory alone, and ends with this program").arg(nom));
  Contexte_.Etat.Signale(ComposeAvisDisque(Ports_.DossierSac, {}));
}

void ModuleMail::Termine() {
  EnFin_ = true;
  TimerVeille_->Desactive();
  TimerRecolte_->Desactive();
  if (ResteDeLaSerie_ > 0) {
    PublieCourriel();
    AcheveSerie();
  }
  // Those of the watch have their message still; the others go with us, unless a server takes them at the last moment.
  const QStringList enMemoire = EnMemoire_.keys();
  for (const QString& nom : enMemoire)
    if (!Veille_.Tient(nom)) SignalePerte(nom);
  TimerPause_->Active();  // no further mail
  TimerFin_->Active();
  Poste_->Arrete([this] { Contexte_.Quitte(); });
}

}  // namespace vaktor
