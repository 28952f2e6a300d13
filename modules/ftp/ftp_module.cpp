// SPDX-License-Identifier: GPL-3.0-or-later
// The link: commands, connecting, losing and finding again. What is uploaded is in ftp_uploads.cpp.
#include "modules/ftp/ftp_module.h"

#include <algorithm>

#include "engine/ports/moment.h"
#include "modules/ftp/ftp_access.h"
#include "texts/language.h"

namespace vaktor {

namespace {

qint32 LitTaille(const QString& texte, qint32 defaut) {
  const qint32 taille = texte.toInt();
  return taille > 0 ? taille : defaut;
}

/// A page of some tens of thousands of photos would never load.
qint32 BornePhotos(qint32 nombre) { return std::clamp(nombre, 0, static_cast<qint32>(PhotosPubliees::kMax)); }

}  // namespace

ModuleFtp::ModuleFtp(const ContexteModule& contexte, std::unique_ptr<OuvrierFtp> ouvrier)
    : Contexte_(contexte),
      Ouvrier_(std::move(ouvrier)),
      File_(contexte.Dossiers.CheminTempFtp()),
      Publiees_(contexte.Dossiers.Etat + QStringLiteral("/VAKTORftp-photos.json")),
      Place_(contexte.Dossiers.Etat + QStringLiteral("/VAKTORftp-place.txt")),
      Sites_(MemoireSites::Fichier(contexte.Dossiers.Etat)) {
  const auto cree = [this](const char* nom, qint32 duree, std::function<void()> tic) {
    return Contexte_.Minuteries.CreeMinuterie(QString::fromLatin1(nom), duree, std::move(tic));
  };
  TimerReprise_ = cree("TimerReprise", kReprises.front(), [this] {
    if (Tache_ == Tache::kAucune) LanceConnexion();
  });
  TimerSigne_ = cree("TimerSigne", kSigne, [this] {
    if (Lien_ == Lien::kConnecte && Tache_ == Tache::kAucune) Execute(Tache::kSigne);
  });
  TimerPhotos_ = cree("TimerPhotos", kRegardLent, [this] { RegardePhotos(); });
  TimerPausePhotos_ = cree("TimerPausePhotos", kPausePhotos, [this] {
    TimerPausePhotos_->Desactive();
    Refusees_.clear();
    Avance();
  });
  TimerPage_ = cree("TimerPage", kRythmePage, [this] {
    TimerPage_->Desactive();
    Avance();
  });
  TimerCalme_ = cree("TimerCalme", kCalme, [this] {
    TimerCalme_->Desactive();
    Contexte_.Dis(QStringLiteral("Surve"));
  });
  TimerPhotos_->Active();
}

void ModuleFtp::PrendReglages(const ReglagesModule& reglages) {
  const Parametres& valeurs = reglages.Valeurs;
  const AccesLu lu = LitAcces(valeurs);
  Voulu_ = lu.Acces;
  Incomplet_ = lu.Manque != ManqueAcces::kRien;
  Page_.Parlee = LangueParlee(valeurs.LangueCourante);
  Page_.Couleur = valeurs.IndexCouleurPage;
  const qint32 intervalle = LitIntervalle(valeurs.IntervalleFtp);
  // The page tells an old image by the interval: with the wrong one it would call a new one old.
  if (ReglagesRecus_ && intervalle != Page_.Intervalle) PagePerimee_ = true;
  ReglagesRecus_ = true;
  Page_.Intervalle = intervalle;
  Page_.Largeur = LitTaille(reglages.Largeur, ContenuPage().Largeur);
  Page_.Hauteur = LitTaille(reglages.Hauteur, ContenuPage().Hauteur);
  PhotosPage_ = BornePhotos(valeurs.NbrPhotosPage);
  Place_.RegleBornes(valeurs.PlaceFichiers, valeurs.PlaceMo * qint64{1'000'000});
  Avance();
}

void ModuleFtp::Enregistre(Inscription comment) {
  if (Lien_ != Lien::kArrete) Arrete(QString());
  MotArret_.clear();
  QStringList mots;
  if (comment == Inscription::kTot) mots = {QStringLiteral("*OKO*")};
  if (comment == Inscription::kTard) mots = {QStringLiteral("Netdc"), QStringLiteral("Decon")};
  for (const QString& mot : mots) Contexte_.Dis(mot);
}

void ModuleFtp::ExecuteCommande(Commande commande) {
  if (commande == Commande::kConnexion) Connecte();
  if (commande == Commande::kDeconnexion) Arrete(QStringLiteral("Decon"));
  if (commande == Commande::kSurveillance) DemandeLive();
  if (commande == Commande::kPage) DemandePage();
}

void ModuleFtp::Connecte() {
  // Also while connected: the switch may have gone off without a word to us, when the camera stopped.
  Arrete(QString());
  if (Incomplet_) {
    Signale(CreeAvisIncomplet(), false);
    Arrete(QStringLiteral("Upnot"));
    return;
  }
  Acces_ = Voulu_;
  TimerReprise_->ChangeIntervalle(kReprises.front());
  TimerReprise_->Active();
  Suppose_ = true;
  Essai_ = 0;
  Refus_ = Coupures_ = 0;
  LivePublie_ = {};  // it may be another server
  Contexte_.Etat.NoteChamp(QStringLiteral("live_since"), EtatModule::EcritInstant(Contexte_.Maintenant()));
  LanceConnexion();
}

void ModuleFtp::DemandeLive() {
  RegardeLive();  // also while nothing can be uploaded: afterwards it must not look like one that has just come
  // A main program that sends images to a companion that knows of no connection has lost the one before us.
  if (Lien_ == Lien::kArrete && MotArret_.isEmpty())
    Connecte();
  else if (Lien_ != Lien::kConnecte)
    DisEtat();
  if (Lien_ == Lien::kArrete) return;
  if (Lien_ == Lien::kConnecte && !EstLiveNeuf()) {
    Contexte_.Dis(QStringLiteral("ConOK"));  // still ready for frames
    return;
  }
  LiveDemande_ = true;
  Avance();
}

void ModuleFtp::DemandePage() {
  if (Lien_ != Lien::kConnecte) DisEtat();
  if (Lien_ == Lien::kArrete) return;
  PageDemandee_ = true;
  if (Acces_.Dossier != Voulu_.Dossier && !Incomplet_) {
    // The user has just saved another folder and asks for a page in it. When it is not there that is a mistake of now,
    // and nothing to wait for.
    Acces_.Dossier = Voulu_.Dossier;
    Etabli_ = false;
  }
  Avance();
}

void ModuleFtp::DisEtat() {
  if (Lien_ == Lien::kConnexion) Contexte_.Dis(QStringLiteral("Conne"));
  if (Lien_ == Lien::kPerdu) Contexte_.Dis(QStringLiteral("Netdc"));
  if (Lien_ == Lien::kArrete) Contexte_.Dis(MotArret_.isEmpty() ? QStringLiteral("Decon") : MotArret_);
}

// The timer rests last: whatever is thrown before, want of memory before all, it tries again.
void ModuleFtp::LanceConnexion() {
  TimerReprise_->Active();
  Lien_ = Lien::kConnexion;
  Contexte_.Dis(QStringLiteral("Conne"));
  Sites_.Relit();
  Sites_.Applique(Acces_);
  // After a power cut everything comes up at once, and the network last: a site that has worked will work again.
  if (Suppose_) Etabli_ = DejaPublie_ = Sites_.EstEtabli(Acces_);
  Suppose_ = !Acces_.SansMemoire.isEmpty();
  DisMemoires();
  Execute(Tache::kConnexion);
  TimerReprise_->Desactive();
}

void ModuleFtp::FinitConnexion(const ResultatFtp& resultat) {
  if (resultat.Issue != IssueFtp::kReussi) {
    Echoue(resultat);
    return;
  }
  TimerReprise_->Active();  // until all this is done: without "ConOK" the main program sends nothing
  Lien_ = Lien::kConnecte;
  Etabli_ = true;
  Suppose_ = false;
  Contexte_.Journal.Note(QStringLiteral("connected to ") + Acces_.Hote);
  if (Sites_.Note(Acces_, resultat))
    Contexte_.Journal.Note(QStringLiteral("first visit, the key of %1 is %2").arg(Acces_.Hote, resultat.CleHote));
  Sites_.Applique(Acces_);  // from now on, also when this very connection is opened again
  const QString site = Acces_.Hote + QLatin1Char('/') + Acces_.Utilisateur + QLatin1Char('/') + Acces_.Dossier;
  Publiees_.ChoisitSite(site);
  Place_.ChoisitSite(site);
  Contexte_.Dis(QStringLiteral("ConOK"));
  Reussit(false);
  TimerSigne_->Active();
  TimerPhotos_->ChangeIntervalle(kRegard);
  TimerReprise_->Desactive();
  RegardePhotos();
}

void ModuleFtp::Echoue(const ResultatFtp& resultat) {
  const bool refuse = resultat.Issue == IssueFtp::kAccesRefuse || resultat.Issue == IssueFtp::kDossierAbsent;
  const bool patience = resultat.Issue == IssueFtp::kSansReseau || (Etabli_ && (!refuse || ++Refus_ < kRefusMax));
  // A connection that stands but never carries a file will not do so tomorrow: the user has to know.
  const bool sterile = Lien_ == Lien::kConnecte && !DejaPublie_ && ++Coupures_ >= kCoupuresMax;
  AvisEchec avis = CreeAvis(resultat, Acces_);
  if (!patience || sterile) {
    Signale(avis, false);
    Arrete(DonneMotEchec(resultat.Issue));
    return;
  }
  // An outage has many faces, one after the other; it is one failure all the same, told once.
  const bool mefiance = resultat.Precision == PrecisionFtp::kTlsPerdu || resultat.Precision == PrecisionFtp::kCleHote ||
                        resultat.Precision == PrecisionFtp::kMemoire;
  if (!mefiance) avis.Sujet = QStringLiteral("ftp-lost");
  Signale(avis, false);
  Perd();
}

void ModuleFtp::Perd() {
  Lien_ = Lien::kPerdu;
  TimerSigne_->Desactive();
  TimerCalme_->Desactive();
  TimerPhotos_->ChangeIntervalle(kRegardLent);
  TimerReprise_->ChangeIntervalle(kReprises.at(std::min(Essai_, kReprises.size() - 1)));
  ++Essai_;
  TimerReprise_->Active();
  Contexte_.Dis(QStringLiteral("Netdc"));
}

void ModuleFtp::Arrete(const QString& mot) {
  Ouvrier_->Coupe();
  Tache_ = Tache::kAucune;
  Lien_ = Lien::kArrete;
  MotArret_ = mot;
  LiveDemande_ = PageDemandee_ = false;
  ANettoyer_.clear();
  Refusees_.clear();
  RefusDeSuite_ = 0;
  for (const char* champ : {"live_since", "live_published"}) Contexte_.Etat.NoteChamp(QLatin1String(champ), QString());
  for (Minuterie* minuterie : {TimerReprise_.get(), TimerSigne_.get(), TimerCalme_.get(), TimerPausePhotos_.get()})
    minuterie->Desactive();
  TimerPhotos_->ChangeIntervalle(kRegardLent);
  if (mot.isEmpty()) return;
  Contexte_.Journal.Note(QStringLiteral("stopped: ") + mot);
  Contexte_.Dis(mot);
}

void ModuleFtp::Termine() {
  Arrete(QString());
  Ouvrier_.reset();
  Contexte_.Quitte();
}

void ModuleFtp::Signale(const AvisEchec& avis, bool desPhotos) {
  AvisPhotos_ = desPhotos;
  Contexte_.Journal.Note(avis.Mots.Dit(Langue::kAnglais) + QLatin1Char(' ') + avis.MotsServeur);
  Contexte_.Etat.Signale(avis);
}

void ModuleFtp::Reussit(bool desPhotos) {
  // An image that goes through does not mean that the photos do.
  if (AvisPhotos_ && !desPhotos) return;
  AvisPhotos_ = false;
  Contexte_.Etat.Efface();
}

QDateTime ModuleFtp::Maintenant() const { return LitMoment(Contexte_.Temps); }

}  // namespace vaktor
