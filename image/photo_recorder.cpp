// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/photo_recorder.h"

#include <exception>
#include <utility>

#include "base/numbers.h"
#include "base/photo_format.h"
#include "image/free_space.h"
#include "image/photo_words.h"
#include "texts/language.h"

namespace vaktor {
namespace {

/// Quality of the user's copies. No setting changes it.
constexpr quint8 kQualitePhoto = 50;

/// As many digits as the limit has at this moment; a number with more is written in full.
QString NumeroPhoto(qint32 compteur, qint32 limite) {
  return QString::number(compteur).rightJustified(QString::number(limite).length(), u'0');
}

/// The part of a photo folder that names its drive: up to and including the first "\".
QString DisqueDe(const QString& repertoire) { return repertoire.left(repertoire.indexOf(u'\\') + 1); }

}  // namespace

EnregistreurPhotos::EnregistreurPhotos(const PortsPhotos& ports) : Ports_(ports) {}

void EnregistreurPhotos::FixeDateJour() { DateJour_ = Ports_.Temps.DonneDate().toString(QStringLiteral("yyyy-MM-dd")); }

void EnregistreurPhotos::EnregistrePhoto() {
  const Parametres& reglages = Ports_.Reglages;
  // Each call uses up a number, whether or not a file follows: the limit counts calls of this run, not files.
  CompteurPhotos_ = AjouteVerifie(CompteurPhotos_, 1);
  const QString numero = NumeroPhoto(CompteurPhotos_, reglages.NombrePhotoMax);
  const QString heure = Ports_.Temps.DonneHeure().toString(QStringLiteral("hh-mm-ss"));
  // Two blanks after the date. The date is that of the start even past midnight, the time is now: photos of several
  // days of one run carry one date, and so sort as one run.
  const QString nom = DateJour_ + QStringLiteral("  ") + heure + QStringLiteral(" Photo ") + numero + kFinPhoto;

  RevoitConditions(true);
  if (VeutPhoto()) EcritCopie(PannePhoto_, reglages.RepertoirePhoto, nom, kQualitePhoto, Ports_.SurPhoto);
  // Not reached when the first copy has just failed. Depends neither on the limit nor on PhotoActif.
  if (Ports_.LiveActif() && (!Ports_.CopieBienvenue || Ports_.CopieBienvenue()))
    EcritCopie(PanneLive_, DossierLive(), nom, reglages.QualiteJpeg, Ports_.SurCopie);
}

// Strictly below: a run saves one photo less than its limit, and with a limit of 1 none.
bool EnregistreurPhotos::VeutPhoto() const {
  return Ports_.Reglages.PhotoActif && CompteurPhotos_ < Ports_.Reglages.NombrePhotoMax;
}

QString EnregistreurPhotos::DossierLive() const { return Ports_.Dossiers.Donnees + QStringLiteral("/Temp/FTP"); }

// A photo that fails ends what its frame does: the rule as it was given. Kept to the end it would make a full disk
// silence the alarm for good, so it is kept for a second. From then on somebody who moves is heard and mailed about
// without photos, and the disk, which may be slow in refusing, is asked once a second and no longer at each frame. Each
// copy has a failure of its own, since their disks may differ; but of both it takes only one second.
void EnregistreurPhotos::EcritCopie(PannePhotos& panne, const QString& dossier, const QString& nom, quint8 qualite,
                                    const std::function<void(const QString&)>& temoin) {
  const qint32 tic = Ports_.Temps.CompteTics();
  if (!panne.EssaiDu(tic)) return;
  QString ecrite;
  try {
    ecrite = EcritNouvelle(dossier + u'/' + nom, qualite);
  } catch (const Echec& echec) {
    panne.Note(tic, dossier, DitPannePhotos(LangueParlee(Ports_.Reglages.LangueCourante), dossier, echec));
    SignalePannes();
    if (PannePhoto_.Installee(tic) || PanneLive_.Installee(tic)) return;
    throw;
  }
  if (panne.Dure()) {
    panne.Oublie();
    SignalePannes();
  }
  if (temoin) temoin(ecrite);
}

// Want of memory is a failure like any other: told, and for a second only an end of the alarm.
QString EnregistreurPhotos::EcritNouvelle(const QString& fichier, quint8 qualite) {
  try {
    return Ports_.Ecrivain.EnregistreNouveauJPEG(Ports_.Surface.Image(), fichier, qualite);
  } catch (const Echec&) {
    throw;
  } catch (const std::exception&) {
    throw EchecJpeg(StatutJpeg::kMemoireEpuisee, 0);
  }
}

void EnregistreurPhotos::RevoitConditions(bool alarmeArmee) {
  RevoitPannes(alarmeArmee);
  const Parametres& reglages = Ports_.Reglages;
  // The next photo would not be taken any more. With a limit of 1 that is so before the first.
  const bool atteinte = reglages.PhotoActif && qint64{CompteurPhotos_} + 1 >= reglages.NombrePhotoMax;
  if (!atteinte) {
    if (std::exchange(LimiteDite_, std::nullopt)) Ports_.Sante.Leve(Condition::kLimitePhotos);
  } else if (alarmeArmee && LimiteDite_ != reglages.NombrePhotoMax) {
    LimiteDite_ = reglages.NombrePhotoMax;
    Ports_.Sante.Signale(Condition::kLimitePhotos, QString::number(reglages.NombrePhotoMax));
  }
}

// What is not wanted any more, or has another place now, does not fail any more: nobody would ever find out otherwise.
// A loss is another matter: the last photos of an alarm are often flushed when it is disarmed already.
void EnregistreurPhotos::RevoitPannes(bool alarmeArmee) {
  const qint32 tic = Ports_.Temps.CompteTics();
  const bool photoFinie =
      PannePhoto_.Dure() && (!alarmeArmee || !VeutPhoto() || PannePhoto_.Dossier() != Ports_.Reglages.RepertoirePhoto);
  const bool liveFinie = PanneLive_.Dure() && (!alarmeArmee || !Ports_.LiveActif());
  const bool perteFinie = Perte_ && static_cast<quint32>(tic) - static_cast<quint32>(Perte_->Tic) >= kRappelPerte;
  if (photoFinie) PannePhoto_.Oublie();
  if (liveFinie) PanneLive_.Oublie();
  if (perteFinie) Perte_.reset();
  if (photoFinie || liveFinie || perteFinie) SignalePannes();
}

void EnregistreurPhotos::NotePerte(const PerteVidage& perte) {
  const qint32 tic = Ports_.Temps.CompteTics();
  Perte_ = Perte{tic, DitPertePhotos(LangueParlee(Ports_.Reglages.LangueCourante), perte.Dossier, perte.Erreur)};
  SignalePannes();
}

QStringList EnregistreurPhotos::DossiersAEssayer() const {
  const qint32 tic = Ports_.Temps.CompteTics();
  QStringList dossiers;
  for (const PannePhotos* panne : {&PannePhoto_, &PanneLive_}) {
    if (panne->EssaiManque(tic)) dossiers += panne->Dossier();
  }
  return dossiers;
}

void EnregistreurPhotos::OublieEssayee(const QString& dossier) {
  const qint32 tic = Ports_.Temps.CompteTics();
  for (PannePhotos* panne : {&PannePhoto_, &PanneLive_}) {
    if (panne->EssaiManque(tic) && panne->Dossier() == dossier) panne->Oublie();
  }
  SignalePannes();
}

void EnregistreurPhotos::SignalePannes() {
  if (PannePhoto_.Dure() || PanneLive_.Dure()) {
    Ports_.Sante.Signale(Condition::kPhotosImpossibles, (PannePhoto_.Dure() ? PannePhoto_ : PanneLive_).Raison());
  } else if (Perte_) {
    Ports_.Sante.Signale(Condition::kPhotosImpossibles, Perte_->Raison);
  } else {
    Ports_.Sante.Leve(Condition::kPhotosImpossibles);
  }
}

bool EnregistreurPhotos::VerifieEspaceDisque() {
  const QString& repertoire = Ports_.Reglages.RepertoirePhoto;
  if (repertoire.isEmpty()) return false;
  // A folder with no "\" names no drive that way. It is the usual case where folders are joined by "/" alone, and an
  // empty text would ask about no disk at all: the warning would be wrong on every machine. So the folder itself is
  // asked about. A folder such as "/home/anna/Vaktor\intrus" is asked about up to its "\", which is the same disk.
  const QString disque = DisqueDe(repertoire);
  const std::optional<qint64> libres = Ports_.Disque.EspaceLibre(disque.isEmpty() ? repertoire : disque);
  if (libres) OctetsLibres_ = *libres;
  return OctetsLibres_ < kOctetsAvertissement;
}

}  // namespace vaktor
