#include "image/photo_gallery.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "image/gallery_words.h"

namespace vaktor {
GaleriePhotos::GaleriePhotos(const PortsGalerie& ports) : Ports_(ports) {}

// Only where no picture is: one that was shown stays on display though its file, or the whole folder, is gone.
void GaleriePhotos::DitListeVide() {
  if (Place_ == Place::kVide && Entrees_.isEmpty()) {
    Place_ = Place::kAucunePhoto;
    Affichage_->MontreAvis(AvisAucunePhoto(Ports_.Reglages.LangueCourante));
  } else if (Place_ == Place::kAucunePhoto && !Entrees_.isEmpty()) {
    Place_ = Place::kVide;
    Affichage_->MontrePhoto({});
  }
}

void GaleriePhotos::RedisAvis() {
  const qint32 langue = Ports_.Reglages.LangueCourante;
  if (Place_ == Place::kAucunePhoto) Affichage_->MontreAvis(AvisAucunePhoto(langue));
  if (Place_ == Place::kPhoto) Affichage_->MontreMention(AvisDommage(langue, Defaut_));
  if (Place_ == Place::kAvis) Affichage_->MontreAvis(AvisPhoto(langue, EtatAvis_, NomAvis_));
  if (Place_ == Place::kSansReponse) Affichage_->MontreAvis(AvisSansReponse(langue, NomAvis_));
}

void GaleriePhotos::OuvreRepertoire() const { Ports_.Bureau.OuvreDossier(Ports_.Reglages.RepertoirePhoto + u'\\'); }

void GaleriePhotos::AfficheNombrePhotos() {
  // "Intrusions : " is the same word in both languages.
  Affichage_->MontreTitre(QStringLiteral("Intrusions : ") + QString::number(Entrees_.size()) +
                          Ports_.Textes.Texte(103));
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
void GaleriePhotos::MontreEntree() {
  const QString entree = Entrees_.value(Index_);
  DitPhoto(LitEntree(entree), entree);
  AfficheNombrePhotos();
}

void GaleriePhotos::ChargeEntree(int index) {
  const QString entree = Entrees_.value(index);
  const PhotoLue lue = LitEntree(entree);
  DitPhoto(lue, entree);
  if (lue.Etat == EtatPhoto::kLue) return;
  throw Echec(kFichierIntrouvable, DitPhotoImpossible(Ports_.Reglages.LangueCourante, lue.Etat, entree));
}

PhotoLue GaleriePhotos::LitEntree(const QString& entree) const {
  const QString chemin = CheminDe(Ports_.Reglages.RepertoirePhoto, entree);
  return chemin.isEmpty() ? PhotoLue{.Etat = EtatPhoto::kAbsente} : Ports_.Lecteur.LitPhoto(chemin);
}

void GaleriePhotos::DitPhoto(const PhotoLue& lue, const QString& entree) {
  if (lue.Etat == EtatPhoto::kLue) {
    Place_ = Place::kPhoto;
    Defaut_ = lue.Defaut;
    Affichage_->MontrePhoto(lue.Image);
    if (Defaut_ != Dommage::kAucun) {
      Affichage_->MontreMention(AvisDommage(Ports_.Reglages.LangueCourante, Defaut_));
    }
    return;
  }
  Place_ = Place::kAvis;
  EtatAvis_ = lue.Etat;
  NomAvis_ = entree;
  Affichage_->MontreAvis(AvisPhoto(Ports_.Reglages.LangueCourante, EtatAvis_, NomAvis_));
}

// Empty for a name with "\" in it, which a file can have here: in a stored path it would part folders, and another file
// would be read, or deleted, in its place.
QString GaleriePhotos::CheminDe(const QString& dossier, const QString& entree) {
  return entree.contains(u'\\') ? QString() : dossier + u'\\' + entree;
}

QString GaleriePhotos::ChangeLimite(const QString& texte) {
  QString limite = NettoieNombre(texte, QStringLiteral("0"), 0);
  Ports_.Reglages.NombrePhotoMax = ChiffresEnEntierBorne(limite);
  Ports_.Reglages.ParametresModifies = true;
  return limite;
}

bool GaleriePhotos::DemandeFermeture() {
  OublieOuverture();
  Ports_.Reglages.ParametresModifies = true;
  Ports_.Sauvegarde.SauveParametres();
  return Ports_.Etat.EnFermeture;
}

}  // namespace vaktor
