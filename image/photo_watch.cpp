// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/photo_watch.h"

#include "image/free_space.h"
#include "image/photo_words.h"

namespace vaktor {
namespace {

constexpr qint32 kSeconde = 1000;

}  // namespace

VeillePhotos::VeillePhotos(const PortsVeillePhotos& ports)
    : Ports_(ports),
      Minuterie_(
          Ports_.Minuteries.CreeMinuterie(QStringLiteral("TimerPhotos"), kSeconde, [this] { PasseUneSeconde(); })) {
  Minuterie_->Active();
}

VeillePhotos::~VeillePhotos() {
  Ports_.Sonde.Oublie();
  Ports_.Essai.Oublie();
}

void VeillePhotos::PasseUneSeconde() {
  const bool armee = Ports_.AlarmeArmee();
  DitPertes();
  Ports_.Photos.RevoitConditions(armee);
  EssaieDossiers();
  // With photos off none goes anywhere, and a full disk is no concern of the watch.
  if (!armee || !Ports_.Reglages.PhotoActif || Ports_.Reglages.RepertoirePhoto.isEmpty()) {
    if (Demande_) OublieEspace();
    return;
  }
  if (Demande_ && Dossier_ != Ports_.Reglages.RepertoirePhoto) OublieEspace();
  if (SecondesAvantDemande_ == 0) {
    SecondesAvantDemande_ = kPeriodeEspace;
    DemandeEspace();
  }
  --SecondesAvantDemande_;
}

void VeillePhotos::DitPertes() {
  while (const std::optional<PerteVidage> perte = Ports_.Pertes.PrendPerte()) Ports_.Photos.NotePerte(*perte);
}

// With nobody who moves no photo finds out that the disk takes files again. The first trial is a minute behind the last
// photo that failed. On a disarmed system none has failed: that was forgotten just before.
void VeillePhotos::EssaieDossiers() {
  if (SecondesAvantEssai_ > 0) --SecondesAvantEssai_;
  const QStringList dossiers = Ports_.Photos.DossiersAEssayer();
  if (dossiers.isEmpty() || SecondesAvantEssai_ > 0) return;
  SecondesAvantEssai_ = kPeriodeEssai;
  for (const QString& dossier : dossiers) {
    Ports_.Essai.Essaie(dossier, [this, dossier](bool reussi) {
      if (reussi) Ports_.Photos.OublieEssayee(dossier);
    });
  }
}

void VeillePhotos::DemandeEspace() {
  Demande_ = true;
  Dossier_ = Ports_.Reglages.RepertoirePhoto;
  Ports_.Sonde.DemandeEspace(
      Dossier_, [this, dossier = Dossier_](std::optional<qint64> libres) { RecoitEspace(dossier, libres); });
}

void VeillePhotos::RecoitEspace(const QString& dossier, std::optional<qint64> libres) {
  // A disk that cannot tell is neither full nor has it room again: what was known of it stays. Photos that cannot be
  // written to it are a condition of their own.
  if (!libres) return;
  if (*libres < kOctetsAvertissement) {
    Ports_.Sante.Signale(Condition::kPeuDePlace, DitDossier(dossier));
  } else {
    Ports_.Sante.Leve(Condition::kPeuDePlace);
  }
}

// Disarmed, without photos, or in another folder: nobody would ask any more whether there is room again. The next alarm
// begins with a question.
void VeillePhotos::OublieEspace() {
  Demande_ = false;
  SecondesAvantDemande_ = 0;
  Ports_.Sonde.Oublie();
  Ports_.Sante.Leve(Condition::kPeuDePlace);
}

}  // namespace vaktor
