// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/photo_gallery.h"

#include <utility>

#include "base/failure.h"
#include "base/numbers.h"
#include "image/gallery_words.h"
#include "texts/phrase.h"

namespace vaktor {
GaleriePhotos::GaleriePhotos(const PortsGalerie& ports) : Ports_(ports) {}

// Only where no picture is: one that was shown stays on display though its file, or the whole folder, is gone.
void GaleriePhotos::DitListeVide() {
  if (Place_ == Place::kVide && Entrees_.isEmpty()) {
    Place_ = Place::kAucunePhoto;
    Affichage_->MontreAvis(AvisAucunePhoto(LangueParlee(Ports_.Reglages.LangueCourante)));
  } else if (Place_ == Place::kAucunePhoto && !Entrees_.isEmpty()) {
    Place_ = Place::kVide;
    Affichage_->MontrePhoto({});
  }
}

void GaleriePhotos::RedisAvis() {
  const Langue langue = LangueParlee(Ports_.Reglages.LangueCourante);
  if (Place_ == Place::kAucunePhoto) Affichage_->MontreAvis(AvisAucunePhoto(langue));
  if (Place_ == Place::kPhoto) Affichage_->MontreMention(AvisDommage(langue, Defaut_));
  if (Place_ == Place::kAvis) Affichage_->MontreAvis(AvisPhoto(langue, EtatAvis_, NomAvis_));
  if (Place_ == Place::kSansReponse) Affichage_->MontreAvis(AvisSansReponse(langue, NomAvis_));
}

void GaleriePhotos::OuvreRepertoire() const { Ports_.Bureau.OuvreDossier(Ports_.Reglages.RepertoirePhoto + u'\\'); }

void GaleriePhotos::AfficheNombrePhotos() {
  Affichage_->MontreTitre(Phrase{"Intrusions : ", "Intrusions : "}.Dit(LangueParlee(Ports_.Reglages.LangueCourante)) +
                          QString::number(Entrees_.size()) + Ports_.Textes.Dit(Libelle::kPhotos));
}

void GaleriePhotos::Clique() {
  if (Index_ >= 0) MontreEntree();
}

bool GaleriePhotos::AppuieBoutonDroit() {
  if (Index_ < 0) return false;
  MontreEntree();
  return true;
}

void GaleriePhotos::GlisseGauche() {
  // The variable starts at 0 and only a drag writes it: the first drag of a run that begins on the first entry shows
  // nothing before it reaches another one, and a click in between is not remembered.
  if (Index_ < 0 || Index_ == DernierIndexAffiche_) return;
  MontreEntree();
  DernierIndexAffiche_ = Index_;
}

// A photo that cannot be shown is no failure of the gallery: its name stays listed, and its place says what is wrong.
void GaleriePhotos::MontreEntree() { DemandeLaPhoto(Entrees_.value(Index_), {}); }

// One at a time, so that a key that is held down does not fill the machine with pictures that nobody waits for; but
// nothing waits for one whose disk does not answer.
void GaleriePhotos::DemandeLaPhoto(const QString& entree, std::function<void(const PhotoLue&)> suite) {
  if (PhotoTarde_) OubliePhotos();
  PhotoVoulue_ = DemandePhoto{.Entree = entree, .Suite = std::move(suite), .Numero = ++Numero_};
  LancePhoto();
}

void GaleriePhotos::LancePhoto() {
  if (!PhotoVoulue_ || PhotoEnCours_ || Ports_.Etat.EnFermeture) return;
  if (DonneTour(DonneOccupation(), Geste::kMontre) != Tour::kTout) return;
  PhotoEnCours_ = std::exchange(PhotoVoulue_, std::nullopt);
  const quint64 numero = PhotoEnCours_->Numero;
  const QString chemin = CheminDe(Ports_.Reglages.RepertoirePhoto, PhotoEnCours_->Entree);
  try {
    if (chemin.isEmpty()) {
      RecoitPhoto({.Etat = EtatPhoto::kAbsente});
    } else {
      Ports_.Lecteur.LitPhoto(chemin, [this](const PhotoLue& lue) { RecoitPhoto(lue); });
    }
  } catch (...) {
    // Not even asked for: the next one must not wait for it.
    if (PhotoEnCours_ && PhotoEnCours_->Numero == numero) OubliePhotos();
    throw;
  }
}

void GaleriePhotos::RecoitPhoto(const PhotoLue& lue) {
  if (Ports_.Etat.EnFermeture) {
    OubliePhotos();
    return;
  }
  const QString entree = PhotoEnCours_->Entree;
  const auto suite = std::exchange(PhotoEnCours_->Suite, nullptr);
  const bool tarde = lue.Etat == EtatPhoto::kSansReponse;
  // Waited for in vain, it counts only where it is still looked for.
  const bool passee = (tarde || PhotoTarde_) && !EstAttendue(entree);
  PhotoTarde_ = tarde && !PhotoVoulue_;
  if (tarde && PhotoVoulue_) Ports_.Lecteur.Oublie();
  if (!PhotoTarde_) PhotoEnCours_.reset();
  try {
    if (suite) {
      suite(lue);
    } else if (!passee) {
      DitPhoto(lue, entree);
      AfficheNombrePhotos();
    }
  } catch (...) {
    LancePhoto();
    throw;
  }
  LancePhoto();
}

// It is selected, or its place says that it is waited for.
bool GaleriePhotos::EstAttendue(const QString& entree) const {
  const bool dite = Place_ == Place::kAvis && EtatAvis_ == EtatPhoto::kSansReponse && NomAvis_ == entree;
  return dite || entree == Entrees_.value(Index_);
}

void GaleriePhotos::OubliePhotos() {
  Ports_.Lecteur.Oublie();
  PhotoEnCours_.reset();
  PhotoVoulue_.reset();
  PhotoTarde_ = false;
}

void GaleriePhotos::OublieImage() {
  OubliePhotos();
  Place_ = Place::kVide;
  Affichage_->MontrePhoto({});
}

bool GaleriePhotos::DitDeLaPhoto(EtatPhoto etat) {
  return etat != EtatPhoto::kLue && etat != EtatPhoto::kSansMoyens && etat != EtatPhoto::kSansReponse;
}

void GaleriePhotos::ExigeMontrable(const PhotoLue& lue, const QString& entree) const {
  if (!DitDeLaPhoto(lue.Etat)) return;
  throw Echec(kFichierIntrouvable, DitPhotoImpossible(LangueParlee(Ports_.Reglages.LangueCourante), lue.Etat, entree));
}

void GaleriePhotos::DitPhoto(const PhotoLue& lue, const QString& entree) {
  if (lue.Etat == EtatPhoto::kLue) {
    Place_ = Place::kPhoto;
    Defaut_ = lue.Defaut;
    Affichage_->MontrePhoto(lue.Image);
    if (Defaut_ != Dommage::kAucun) {
      Affichage_->MontreMention(AvisDommage(LangueParlee(Ports_.Reglages.LangueCourante), Defaut_));
    }
    return;
  }
  Place_ = Place::kAvis;
  EtatAvis_ = lue.Etat;
  NomAvis_ = entree;
  Affichage_->MontreAvis(AvisPhoto(LangueParlee(Ports_.Reglages.LangueCourante), EtatAvis_, NomAvis_));
}

// Empty for a name with "\" in it, which a file can have here: in a stored path it would part folders, and another file
// would be read, or deleted, in its place.
QString GaleriePhotos::CheminDe(const QString& dossier, const QString& entree) {
  return entree.contains(u'\\') ? QString() : dossier + u'\\' + entree;
}

QString GaleriePhotos::ChangeLimite(const QString& texte, bool lue) {
  QString limite = NettoieNombre(texte, QStringLiteral("0"), 0);
  Ports_.Reglages.NombrePhotoMax = ChiffresEnEntierBorne(limite);
  if (!lue) Ports_.Reglages.ParametresModifies = true;
  return limite;
}

bool GaleriePhotos::DemandeFermeture() {
  OublieOuverture();
  Ports_.Reglages.ParametresModifies = true;
  Ports_.Sauvegarde.SauveParametres();
  return Ports_.Etat.EnFermeture;
}

}  // namespace vaktor
