// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the folder: opening, another folder, the list anew.
#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/photo_format.h"
#include "image/gallery_words.h"
#include "image/photo_gallery.h"
#include "texts/language.h"

namespace vaktor {
namespace {

// Also matches names with more behind their end: a photo renamed to "x.jpg.old" or half fetched stays in sight.
QString Motif() { return u'*' + kFinPhoto + u'*'; }

}  // namespace

void GaleriePhotos::OuvreGalerie() {
  if (EstDeposee(Genre::kOuverture) || EstDeposee(Genre::kRepli)) return;
  Depose(Geste::kOuvre, {.Quoi = Genre::kOuverture});
}

void GaleriePhotos::RepointeSur(const QString& dossier, std::function<void()> fini) {
  if (dossier != Chemin_) OublieEffacements();
  Depose(Geste::kChangeDossier, {.Quoi = Genre::kRepointage, .Dossier = dossier, .Fin = std::move(fini)});
}

void GaleriePhotos::Rafraichit() {
  // One that waits will see all that this one would. One that runs may have passed what came in since.
  const bool attend =
      std::any_of(Attente_.begin(), Attente_.end(), [](const Demande& d) { return d.Quoi == Genre::kRelecture; });
  if (!attend) Depose(Geste::kRafraichit, {.Quoi = Genre::kRelecture});
}

void GaleriePhotos::LitDossier() {
  Demande& demande = *EnCours_;
  if (demande.Quoi == Genre::kOuverture || demande.Quoi == Genre::kRepli) {
    demande.Dossier = Ports_.Reglages.RepertoirePhoto;
  } else if (demande.Quoi != Genre::kRepointage) {
    demande.Dossier = Chemin_;
  }
  ReprendVoulues();
  const QString dossier = demande.Dossier;
  Ports_.Noms.LitNoms(dossier, Motif(), [this](const NomsPhotos& lus) { Recoit(lus); });
}

void GaleriePhotos::Recoit(const NomsPhotos& lus) {
  if (Ports_.Etat.EnFermeture) {
    Abandonne();
    return;
  }
  if (lus.Etat == EtatNoms::kSansReponse) {
    Patiente();
    return;
  }
  Tarde_ = false;
  const quint64 numero = EnCours_->Numero;
  try {
    Applique(lus);
  } catch (...) {
    Cloture(numero, false);
    throw;
  }
}

// The disk does not answer, perhaps only because it sleeps: that is no reason to give up the user's folder. The window
// comes up and says so, another folder can be chosen there, and the names are still taken when they come.
void GaleriePhotos::Patiente() {
  Tarde_ = true;
  if (const auto fin = std::exchange(EnCours_->Fin, nullptr)) fin();
  if (!Attente_.empty()) {
    Abandonne();
    LanceSuivante();
    return;
  }
  const Genre quoi = EnCours_->Quoi;
  if (quoi == Genre::kRelecture || quoi == Genre::kSuiteEffacement) {
    LancePhoto();
    return;
  }
  Place_ = Place::kSansReponse;
  NomAvis_ = EnCours_->Dossier;
  QuitteListe();
  Affichage_->MontreAvis(AvisSansReponse(LangueParlee(Ports_.Reglages.LangueCourante), NomAvis_));
  if (quoi != Genre::kRepointage) Affichage_->MontreFenetre();
  AfficheNombrePhotos();
}

// The list stands on the folder that was asked for, without an entry: a refresh asks that one again, and no photo of
// the folder before is shown or deleted where its names mean nothing.
void GaleriePhotos::QuitteListe() {
  if (EnCours_->Dossier == Chemin_) return;
  EnCours_->Autre = true;
  ChangeChemin(EnCours_->Dossier);
  PrendListe({});
}

void GaleriePhotos::Applique(const NomsPhotos& lus) {
  if (Place_ == Place::kSansReponse) {
    Place_ = Place::kVide;
    Affichage_->MontrePhoto({});
  }
  if (EnCours_->Quoi == Genre::kRepointage) {
    Repointe(lus);
  } else if (EnCours_->Quoi == Genre::kOuverture || EnCours_->Quoi == Genre::kRepli) {
    PoursuitOuverture(lus);
  } else {
    Relit(lus);
  }
}

void GaleriePhotos::PoursuitOuverture(const NomsPhotos& lus) {
  if (EnCours_->Dossier != Ports_.Reglages.RepertoirePhoto) {
    // Another one was chosen while this one was read. It is opened, and not taken for a folder that fails.
    Reprend(Genre::kOuverture);
    return;
  }
  if (EnCours_->Quoi == Genre::kRepli) OublieImage();
  if (lus.Etat == EtatNoms::kIllisible) {
    if (Replie()) return;
    QuitteListe();
    MontreMalgreTout();
    ExigeLecture(EnCours_->Dossier, lus.Etat);
  }
  FixeChemin(lus);  // takes the list, also where the folder is the one of before
  if (Entrees_.isEmpty()) {
    AcheveOuverture(lus.Etat);
  } else {
    LitPremiere([this, etat = lus.Etat](const PhotoLue& lue) { OuvreSur(lue, etat); });
  }
}

void GaleriePhotos::OuvreSur(const PhotoLue& lue, EtatNoms etat) {
  if (EnCours_->Dossier != Ports_.Reglages.RepertoirePhoto) {
    Reprend(Genre::kOuverture);
    return;
  }
  // Deleted since the list was read, by another program, or by a disk that has just woken and ends what it was asked to
  // delete: that says nothing of the folder. The list read anew tells; a photo that it shows and that is not there
  // either is one that cannot be shown.
  if (lue.Etat == EtatPhoto::kAbsente && !EnCours_->Relue) {
    Reprend(EnCours_->Quoi, true);
    return;
  }
  if (DitDeLaPhoto(lue.Etat) && Replie()) return;
  const QString entree = Entrees_.first();
  DitPhoto(lue, entree);
  if (DitDeLaPhoto(lue.Etat)) MontreMalgreTout();
  ExigeMontrable(lue, entree);
  AcheveOuverture(etat);
}

// Where the user's folder or its first photo fails the program's own is opened. False when that is the one that failed.
bool GaleriePhotos::Replie() {
  if (EnCours_->Quoi == Genre::kRepli) return false;
  // In memory only: the user's folder is lost for good no sooner than with the next save.
  Ports_.Reglages.RepertoirePhoto = Ports_.Dossiers.PhotosParDefaut();
  Reprend(Genre::kRepli);
  return true;
}

// The failure is told by the guard of the event loop. Another folder is chosen in the window.
void GaleriePhotos::MontreMalgreTout() {
  AfficheNombrePhotos();
  Affichage_->MontreFenetre();
}

void GaleriePhotos::AcheveOuverture(EtatNoms etat) {
  // List and picture agree, without a click: a photo further down may have been selected when the window was hidden, or
  // while the first one was read.
  if (!Entrees_.isEmpty()) {
    ChoisitPremiere();
    PhotoVoulue_.reset();
  }
  Affichage_->AjusteAutourPhoto();
  Affichage_->MontreFenetre();
  AfficheNombrePhotos();
  ExigeLecture(EnCours_->Dossier, etat);
  Cloture(EnCours_->Numero, true);
}

void GaleriePhotos::Repointe(const NomsPhotos& lus) {
  if (lus.Etat == EtatNoms::kIllisible) {
    QuitteListe();
  } else {
    FixeChemin(lus);
  }
  if (!Entrees_.isEmpty()) {
    LitPremiere([this, etat = lus.Etat](const PhotoLue& lue) {
      DitPhoto(lue, Entrees_.first());
      AcheveLecture(etat, [&] { ExigeMontrable(lue, Entrees_.first()); });
    });
    return;
  }
  AcheveLecture(lus.Etat, [] {});
}

void GaleriePhotos::Relit(const NomsPhotos& lus) {
  // For want of memory nothing is known of the folder: what is listed stays.
  if (lus.Etat != EtatNoms::kSansMoyens) PrendListe(lus.Noms);
  // An empty list would say that the photos are gone, when it is the folder, for instance with its volume.
  AcheveLecture(lus.Etat, [] {});
}

void GaleriePhotos::AcheveLecture(EtatNoms etat, const std::function<void()>& exige) {
  AfficheNombrePhotos();
  exige();
  ExigeLecture(EnCours_->Dossier, etat);
  Cloture(EnCours_->Numero, true);
}

void GaleriePhotos::ExigeLecture(const QString& dossier, EtatNoms etat) const {
  if (etat == EtatNoms::kLus) return;
  throw Echec(kFichierIntrouvable, DitLectureImpossible(LangueParlee(Ports_.Reglages.LangueCourante), etat, dossier));
}

// A folder that may not be read is as good as gone: taken for an empty one, it would hide the user's photos.
void GaleriePhotos::FixeChemin(const NomsPhotos& lus) {
  if (lus.Etat == EtatNoms::kSansMoyens) {
    QuitteListe();
    return;
  }
  const bool autre = EnCours_->Autre || EnCours_->Dossier != Chemin_;
  if (autre) ChangeChemin(EnCours_->Dossier);
  PrendListe(lus.Noms);
  // A click on the first entry of another folder. What it shows is the photo that each folder is opened with, which is
  // read once. An empty folder leaves the picture of the one before in its place.
  if (autre && !Entrees_.isEmpty()) ChoisitPremiere();
}

void GaleriePhotos::ChangeChemin(const QString& dossier) {
  Chemin_ = dossier;
  Index_ = -1;
  OublieEffacements();
  OubliePhotos();
}

void GaleriePhotos::ChoisitPremiere() {
  Index_ = 0;
  Affichage_->MontreIndex(Index_);
}

// A selected photo stays selected while it is there, wherever it stands now.
void GaleriePhotos::PrendListe(const QStringList& noms) {
  const QString choisie = Entrees_.value(Index_);
  Entrees_ = noms;
  Index_ = choisie.isEmpty() ? -1 : static_cast<int>(Entrees_.indexOf(choisie));
  Affichage_->MontreListe(Entrees_, Index_);
  DitListeVide();
}

// The folder has its turn until its first photo is there, or until that one's disk has let it wait.
void GaleriePhotos::LitPremiere(std::function<void(const PhotoLue&)> suite) {
  OubliePhotos();
  DemandeLaPhoto(Entrees_.first(), [this, numero = EnCours_->Numero, suite = std::move(suite)](const PhotoLue& lue) {
    try {
      suite(lue);
    } catch (...) {
      Cloture(numero, false);
      throw;
    }
  });
}

}  // namespace vaktor
