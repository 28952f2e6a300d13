// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_module.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstring>

#include "base/jpeg_end.h"
#include "modules/mail/failure_advice.h"
#include "modules/push/push_notices.h"
#include "platform/base/bounded_log.h"
#include "platform/base/system_files.h"

namespace vaktor {

namespace {

/// The newest photo that is whole; nothing where none is young enough. What is still being written is passed over.
PieceJointe TrouveImage(const QString& dossier, qint64 maintenant) {
  QList<PhotoConnue> photos = ListePhotos(dossier, maintenant);
  photos.removeIf([maintenant](const PhotoConnue& p) {
    return qAbs(maintenant - p.Instant) > ModulePush::kPhotoMs || p.Octets > SacPush::kImageMax;
  });
  std::sort(photos.begin(), photos.end(), [](const PhotoConnue& a, const PhotoConnue& b) {
    return a.Instant != b.Instant ? a.Instant > b.Instant : a.Chemin > b.Chemin;
  });
  for (const PhotoConnue& photo : photos) {
    QFile fichier(photo.Chemin);
    if (!fichier.open(QIODevice::ReadOnly)) continue;
    const QByteArray octets = fichier.read(SacPush::kImageMax + 1);
    if (!EstJpegEntier(octets)) continue;
    return {QFileInfo(photo.Chemin).fileName(), octets};
  }
  return {};
}

}  // namespace

ModulePush::ModulePush(const ContexteModule& contexte, const PortsPush& ports)
    : Contexte_(contexte),
      Ports_(ports),
      Sac_(ports.DossierSac),
      Veille_(ports.DossierVeille, Sac_, contexte.Journal),
      TimerVeille_(
          contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerVeille"), kRepriseVeille, [this] { PrendVeille(); })),
      Poste_(ports.OuvrePoste([this](const RapportPush& rapport) { PrendRapport(rapport); })) {}

void ModulePush::PrendReglages(const ReglagesModule& reglages) {
  const Parametres& valeurs = reglages.Valeurs;
  const PushLu lu = LitPush(valeurs, Ports_.Autorites);
  const bool autres = !(lu.Reglages == Reglages_);
  Reglages_ = lu.Reglages;
  Titre_ = valeurs.MailSujet;
  Parlee_ = LangueParlee(valeurs.LangueCourante);
  DossierPhotos_ = valeurs.PhotoActif ? CheminNatif(valeurs.RepertoirePhoto) : Contexte_.Dossiers.CheminTempFtp();
  Ports_.Etat.ChangeLangue(Parlee_);
  for (const QString& secret : DonneSecretsPush(Reglages_)) {
    Contexte_.Journal.CacheSecret(secret);
    Ports_.Etat.CacheSecret(secret);
  }
  if (lu.Manque != ManquePush::kRien)
    Ports_.Etat.Signale(ComposeAvisManque(lu.Manque));
  else if (autres)
    Ports_.Etat.Efface();
  if (Poste_) Poste_->ChangeReglages(Reglages_);  // "Optio" may come behind "Quit*"
  if (autres) MotsServeur_.clear();
  NoteAttente();
  PrendVeille();
}

void ModulePush::ExecuteCommande(Commande commande) {
  if (commande == Commande::kVeille) PrendVeille();
  if (commande == Commande::kIntrusion && EstVoulu() && Poste_) NoteIntrusion();
}

void ModulePush::PrendVeille() {
  if (!FaitVeille_ || !EstVoulu() || !Poste_) return TimerVeille_->Desactive();
  const PrisePush prise = Veille_.Prend(Parlee_, Titre_, Ports_.Maintenant());
  if (prise.Illisible) Ports_.Etat.Signale(ComposeAvisVeille(Ports_.DossierVeille));
  if (prise.Erreur != 0) SignaleSac(prise.Erreur);
  if (prise.Pris > 0) {
    NoteAttente();
    Poste_->Reveille();
  }
  prise.Reste ? TimerVeille_->Active() : TimerVeille_->Desactive();
}

void ModulePush::NoteIntrusion() {
  const qint64 maintenant = Ports_.Maintenant();
  // A clock that was set back begins anew.
  const qint64 depuisIntrusion = maintenant - DerniereIntrusion_;
  const bool nouvelle = depuisIntrusion >= kFinMs || depuisIntrusion < 0;
  DerniereIntrusion_ = maintenant;
  if (!nouvelle && maintenant - DernierPush_ < kPauseMs) return;
  DernierPush_ = maintenant;
  const QString marque = QStringLiteral("%1-%2").arg(Ports_.Marque).arg(++Fait_);
  int sansImage = 0;
  const int erreur = Sac_.Ajoute(Compose(maintenant), maintenant, marque, &sansImage);
  if (erreur == 0) {
    Contexte_.Journal.Note(QStringLiteral("push %1 made").arg(marque));
    NoteAttente();
    if (sansImage != 0) {
      const QString mots = QString::fromLocal8Bit(std::strerror(sansImage));
      Contexte_.Journal.Note(QStringLiteral("without its picture: ") + mots);
      Ports_.Etat.Signale(ComposeAvisSansPhoto(Ports_.DossierSac, mots));
    }
    Poste_->Reveille();
    return;
  }
  SignaleSac(erreur);
}

void ModulePush::SignaleSac(int erreur) {
  const QString mots = QString::fromLocal8Bit(std::strerror(erreur));
  Contexte_.Journal.Note(QStringLiteral("the outbox of the pushes cannot be written: ") + mots);
  Ports_.Etat.Signale(ComposeAvisSac(Ports_.DossierSac, mots));
}

MessagePush ModulePush::Compose(qint64 maintenant) {
  MessagePush message;
  message.Titre = Titre_;
  message.Texte = TextePush(Parlee_, QDateTime::fromMSecsSinceEpoch(maintenant).time());
  const std::optional<PieceJointe> image =
      Photos_.Demande<PieceJointe>([dossier = DossierPhotos_, maintenant] { return TrouveImage(dossier, maintenant); });
  if (image) {
    message.Image = image->Contenu;
    message.NomImage = image->Nom;
  } else {
    Contexte_.Journal.Note(QStringLiteral("a push without its picture: the disk of the photos does not answer"));
  }
  return message;
}

void ModulePush::PrendRapport(const RapportPush& rapport) {
  const ResultatPush& r = rapport.Resultat;
  const bool pris = r.Issue == IssuePush::kPris;
  if (pris || rapport.Abandonne) Finis_.insert(rapport.Nom);
  MotsServeur_ = pris || rapport.Abandonne ? QString() : r.Mots;
  NoteAttente();
  if (rapport.Abime) {
    Contexte_.Journal.Note(QStringLiteral("push %1: damaged, deleted").arg(rapport.Nom));
    return;
  }
  const QString suite = pris                ? QStringLiteral("taken")
                        : rapport.Abandonne ? QStringLiteral("given up")
                                            : QStringLiteral("again in %1 s").arg(rapport.ProchainEssaiDans / 1000);
  // What a server says of one that it has taken is nobody's concern, and quotes the push.
  Contexte_.Journal.Note(QStringLiteral("push %1: %2 %3").arg(rapport.Nom, suite, pris ? QString() : r.Mots).trimmed());
  if (pris)
    Ports_.Etat.Efface();
  else
    Ports_.Etat.Signale(ComposeAvisPush(r, Reglages_.Hote));
}

// Without an address nothing is waited for: those that lie there go when there is one again.
void ModulePush::NoteAttente() {
  QStringList noms;
  if (EstVoulu()) noms = Sac_.Liste();
  Finis_.intersect(QSet<QString>(noms.begin(), noms.end()));
  noms.removeIf([this](const QString& nom) { return Finis_.contains(nom); });
  const QString depuis = noms.isEmpty() ? QString() : EtatModule::EcritInstant(SacPush::FaitA(noms.last()));
  Contexte_.Etat.NoteChamp(QStringLiteral("push_waiting_since"), depuis);
  const QString mots = noms.isEmpty() ? QString() : NettoieLigne(MotsServeur_, DonneSecretsPush(Reglages_));
  Contexte_.Etat.NoteChamp(QStringLiteral("push_server"), mots);
}

}  // namespace vaktor
