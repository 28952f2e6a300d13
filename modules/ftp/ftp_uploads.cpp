// SPDX-License-Identifier: GPL-3.0-or-later
// What goes to the server, in which order, and what is said about it.
#include "modules/ftp/ftp_module.h"

#include <QDateTime>
#include <QFileInfo>
#include <algorithm>
#include <utility>

namespace vaktor {

void ModuleFtp::Avance() {
  if (Lien_ != Lien::kConnecte || Tache_ != Tache::kAucune) return;
  if (LiveDemande_ && !EstLiveNeuf()) LiveDemande_ = false;
  // Those at the back have their turn again when nothing else is left.
  if (!Refusees_.isEmpty() && !TimerPausePhotos_->EstActive() && ChoisitPhoto().isEmpty()) TimerPausePhotos_->Active();
  const Tache tache = ChoisitTache();
  if (tache != Tache::kAucune) Execute(tache);
}

QFileInfo ModuleFtp::LiveSurDisque() const {
  return QFileInfo(Contexte_.Dossiers.CheminTemp() + QStringLiteral("/Live.jpg"));
}

ModuleFtp::EtatFichier ModuleFtp::DonneEtat(const QFileInfo& fichier) {
  return {fichier.lastModified().toMSecsSinceEpoch(), fichier.size()};
}

// Seen to change, an image is as old as that, whatever the clock of a network disk says. Only of one that lay there
// before the first look nothing else is known than its own date.
void ModuleFtp::RegardeLive() {
  const EtatFichier etat = DonneEtat(LiveSurDisque());
  if (etat == LiveVu_) return;
  LiveVuA_ = LiveVu_.Date < 0 ? 0 : Contexte_.Maintenant();
  LiveVu_ = etat;
}

bool ModuleFtp::EstLiveNeuf() const {
  const QFileInfo live = LiveSurDisque();
  if (!live.exists()) return true;  // the worker finds that out, and says what it says
  const EtatFichier etat = DonneEtat(live);
  const qint64 age = Contexte_.Maintenant() - (etat == LiveVu_ && LiveVuA_ > 0 ? LiveVuA_ : etat.Date);
  return !(etat == LivePublie_) && age <= std::max(kIntervallesNeuf * qint64{Page_.Intervalle}, qint64{kNeufMin});
}

ModuleFtp::Tache ModuleFtp::ChoisitTache() const {
  const bool nettoie = !ANettoyer_.isEmpty() || !Place_.EnTrop().isEmpty();
  const bool photo = nettoie || (!TimerPausePhotos_->EstActive() && !ChoisitPhoto().isEmpty());
  if (PageDemandee_) return Tache::kPageDemandee;
  if (LiveDemande_ && !(photo && TourPhoto_)) return Tache::kLive;
  // Before the next photo: an alarm brings thirty a second, and behind all of them the page would come too late.
  if (PagePerimee_ && Publiees_.APage() && !TimerPage_->EstActive()) return Tache::kPageSeule;
  if (nettoie) return Tache::kNettoyage;
  if (photo) return Tache::kPhoto;
  return Tache::kAucune;
}

QString ModuleFtp::ChoisitPhoto() const {
  for (auto nom = Attente_.crbegin(); nom != Attente_.crend(); ++nom)
    if (!Refusees_.contains(*nom)) return *nom;
  return {};
}

// With its mark left standing by a job that never began nothing would be sent any more: whatever is thrown on the way,
// want of memory before all, the job is wanted still and tried with the next look.
void ModuleFtp::Execute(Tache tache) {
  Tache_ = tache;
  try {
    Lance(tache);
  } catch (...) {
    Tache_ = Tache::kAucune;
    Redemande(tache);
    throw;
  }
}

void ModuleFtp::Redemande(Tache tache) {
  if (tache == Tache::kLive) LiveDemande_ = true;
  if (tache == Tache::kPageSeule) PagePerimee_ = true;
}

void ModuleFtp::Lance(Tache tache) {
  TimerCalme_->Desactive();
  if (tache == Tache::kLive) {
    LiveDemande_ = false;  // one that comes from now on is a newer one
    LiveEnvoye_ = DonneEtat(LiveSurDisque());
  }
  if (tache == Tache::kPhoto) PhotoEnvoyee_ = ChoisitPhoto();
  if (tache == Tache::kNettoyage && ANettoyer_.isEmpty()) ANettoyer_ = Place_.EnTrop();
  if (tache == Tache::kPageDemandee || tache == Tache::kPageSeule) PagePerimee_ = false;
  if (tache == Tache::kLive || tache == Tache::kPageDemandee) Contexte_.Dis(QStringLiteral("Uploa"));
  TourPhoto_ = tache == Tache::kLive;
  const auto etape = [this](EtapeFtp quelle) {
    Contexte_.Dis(quelle == EtapeFtp::kServeurTrouve ? QStringLiteral("SerTR") : QStringLiteral("Paswo"));
  };
  Ouvrier_->Lance(CreeTravail(tache), tache == Tache::kConnexion ? OuvrierFtp::SurEtape(etape) : OuvrierFtp::SurEtape(),
                  [this, tache](const ResultatFtp& resultat) {
                    Tache_ = Tache::kAucune;
                    Finit(tache, resultat);
                    Avance();
                  });
}

TravailFtp ModuleFtp::CreeTravail(Tache tache) const {
  TravailFtp travail;
  travail.Acces = Acces_;
  switch (tache) {
    case Tache::kConnexion:
      travail.Genre = GenreTravail::kConnexion;
      break;
    case Tache::kLive:
      travail.Genre = GenreTravail::kFichier;
      travail.Source = LiveSurDisque().filePath();
      travail.Nom = kNomLive;
      break;
    case Tache::kPhoto:
      travail.Genre = GenreTravail::kFichier;
      travail.Source = File_.Chemin(PhotoEnvoyee_);
      travail.Nom = PhotoEnvoyee_;
      break;
    case Tache::kNettoyage:
      travail.Genre = GenreTravail::kNettoie;
      travail.Noms = ANettoyer_;
      break;
    case Tache::kPageDemandee:
    case Tache::kPageSeule:
      travail.Genre = GenreTravail::kPage;
      travail.Contenu = CreePageLive(CreeContenu());
      travail.Nom = kNomPage;
      break;
    case Tache::kSigne:
    case Tache::kAucune:
      travail.Genre = GenreTravail::kSigne;
      break;
  }
  return travail;
}

ContenuPage ModuleFtp::CreeContenu() const {
  ContenuPage contenu = Page_;
  contenu.Photos = Publiees_.Liste().mid(0, PhotosPage_);
  return contenu;
}

void ModuleFtp::Finit(Tache tache, const ResultatFtp& resultat) {
  if (tache == Tache::kConnexion) {
    FinitConnexion(resultat);
    return;
  }
  if (resultat.Issue == IssueFtp::kReussi) Essai_ = 0;
  const bool publie = tache != Tache::kSigne && tache != Tache::kNettoyage;
  if (resultat.Issue == IssueFtp::kReussi && publie) {
    DejaPublie_ = true;
    Sites_.NoteEtabli(Acces_);
    Refus_ = 0;
  }
  const bool lienSain = resultat.Issue == IssueFtp::kReussi || resultat.Issue == IssueFtp::kRefus ||
                        resultat.Issue == IssueFtp::kSourceIncomplete || resultat.Issue == IssueFtp::kSourceIllisible;
  if (!lienSain) {
    Redemande(tache);  // wanted still, and asked for again by nobody
    if (tache == Tache::kPhoto) NotePhotoCoupee();
    Echoue(resultat);
    return;
  }
  if (tache == Tache::kLive) FinitLive(resultat);
  if (tache == Tache::kPageDemandee) FinitPage(true, resultat);
  if (tache == Tache::kPageSeule) FinitPage(false, resultat);
  if (tache == Tache::kPhoto) FinitPhoto(resultat);
  if (tache == Tache::kNettoyage) FinitNettoyage();
}

void ModuleFtp::FinitLive(const ResultatFtp& resultat) {
  if (resultat.Issue == IssueFtp::kRefus) {
    RefuseEnvoi(resultat);
  } else if (resultat.Issue == IssueFtp::kSourceIncomplete) {
    // Caught in the middle of being rewritten, five times: the next one will do.
    Contexte_.Dis(QStringLiteral("ConOK"));
  } else if (resultat.Issue == IssueFtp::kSourceIllisible) {
    Signale(CreeAvisSource(resultat), false);
    Contexte_.Dis(QStringLiteral("ConOK"));
  } else {
    LivePublie_ = LiveEnvoye_;
    Contexte_.Etat.NoteChamp(QStringLiteral("live_published"), EtatModule::EcritInstant(Contexte_.Maintenant()));
    Reussit(false);
    Contexte_.Dis(QStringLiteral("UplOK"));
    TimerCalme_->Active();
  }
}

void ModuleFtp::FinitPage(bool demandee, const ResultatFtp& resultat) {
  TimerPage_->Active();
  if (demandee) PageDemandee_ = false;
  if (resultat.Issue != IssueFtp::kReussi) {
    if (demandee)
      RefuseEnvoi(resultat);
    else
      PagePerimee_ = true;
    return;
  }
  Publiees_.NotePage();
  Reussit(false);
  if (!demandee) return;
  Contexte_.Dis(QStringLiteral("UplOK"));
  TimerCalme_->Active();
}

void ModuleFtp::RefuseEnvoi(const ResultatFtp& resultat) {
  Signale(CreeAvis(resultat, Acces_), false);
  if (FaitPlace(resultat)) {
    Contexte_.Dis(QStringLiteral("ConOK"));
    return;
  }
  // A server that took images and takes none now is full for a while: we are still connected, and go on trying. One
  // that never took any has to be put right by the user.
  if (DejaPublie_)
    Contexte_.Dis(QStringLiteral("ConOK"));
  else
    Arrete(QStringLiteral("ErrCo"));
}

// One that this server does not want, or that this machine cannot read, must not keep the others from it.
void ModuleFtp::RefusePhoto(const ResultatFtp& resultat) {
  Signale(resultat.Issue == IssueFtp::kRefus ? CreeAvisPhotos(resultat) : CreeAvisSource(resultat), true);
  if (FaitPlace(resultat)) return;
  Refusees_.append(PhotoEnvoyee_);
  if (++RefusDeSuite_ >= kRefusPhotos || ChoisitPhoto().isEmpty()) TimerPausePhotos_->Active();
}

// Any of them may meet the end of a network. One that meets it twice may be what a path cannot carry, or what a watcher
// on the way cuts off: the others go first then.
void ModuleFtp::NotePhotoCoupee() {
  if (PhotoCoupee_ == PhotoEnvoyee_) Refusees_.append(PhotoEnvoyee_);
  PhotoCoupee_ = PhotoEnvoyee_;
}

void ModuleFtp::FinitPhoto(const ResultatFtp& resultat) {
  if (resultat.Issue == IssueFtp::kRefus || resultat.Issue == IssueFtp::kSourceIllisible) {
    RefusePhoto(resultat);
    return;
  }
  const QString nom = PhotoEnvoyee_;
  Attente_.removeOne(nom);
  if (resultat.Issue == IssueFtp::kSourceIncomplete) {
    if (!File_.EstAbandonne(nom, Maintenant())) return;  // still being written; the next look finds it again
    Contexte_.Journal.Note(QStringLiteral("no picture, deleted: ") + nom);
    File_.Retire(nom);
    return;
  }
  RefusDeSuite_ = 0;
  // Somebody may have deleted it here meanwhile.
  const bool la = QFileInfo::exists(File_.Chemin(nom));
  const QDateTime prise = la ? File_.DonnePrise(nom) : Maintenant();
  const qint64 recul = la ? File_.DonneRecul(nom) : 0;
  Place_.Note(nom, QFileInfo(File_.Chemin(nom)).size(), prise.toMSecsSinceEpoch() - recul);
  Publiees_.Ajoute({nom, prise, recul});
  File_.Retire(nom);
  PagePerimee_ = true;
  EcartePhotos();
  Reussit(true);
}

}  // namespace vaktor
