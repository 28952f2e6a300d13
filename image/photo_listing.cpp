// Reading the folder: opening, another folder, the list anew; one thing after the other.
#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "image/gallery_words.h"
#include "image/photo_gallery.h"

namespace vaktor {
namespace {

// Also matches names with more behind ".jpg": a photo renamed to "x.jpg.old" or half fetched stays in sight.
QString Motif() { return QStringLiteral("*.jpg*"); }

}  // namespace

void GaleriePhotos::OuvreGalerie() {
  if (EstDeposee(Genre::kOuverture) || EstDeposee(Genre::kRepli)) return;
  Depose({.Quoi = Genre::kOuverture});
}

void GaleriePhotos::RepointeSur(const QString& dossier, std::function<void()> fini) {
  Depose({.Quoi = Genre::kRepointage, .Dossier = dossier, .Fin = std::move(fini)});
}

void GaleriePhotos::Rafraichit() {
  // One that waits will see all that this one would. One that runs may have passed what came in since.
  const bool attend =
      std::any_of(Attente_.begin(), Attente_.end(), [](const Demande& d) { return d.Quoi == Genre::kRelecture; });
  if (!attend) Depose({.Quoi = Genre::kRelecture});
}

void GaleriePhotos::Delie() {
  Ports_.Noms.Oublie();
  EnCours_.reset();
  Attente_.clear();
}

void GaleriePhotos::Depose(Demande demande) {
  // What a deletion leaves behind belongs to it: nothing comes between.
  if (demande.Quoi == Genre::kSuiteEffacement) {
    Attente_.push_front(std::move(demande));
  } else {
    Attente_.push_back(std::move(demande));
  }
  if (EnCours_ && Tarde_) Abandonne();
  if (!EnCours_) LanceSuivante();
}

// A reading that is late counts for nothing: asked for again, it is tried again.
bool GaleriePhotos::EstDeposee(Genre quoi) const {
  if (EnCours_ && !Tarde_ && EnCours_->Quoi == quoi) return true;
  return std::any_of(Attente_.begin(), Attente_.end(), [quoi](const Demande& d) { return d.Quoi == quoi; });
}

void GaleriePhotos::LanceSuivante() {
  while (!EnCours_ && !Attente_.empty() && !Ports_.Etat.EnFermeture) {
    Demande demande = std::move(Attente_.front());
    Attente_.pop_front();
    if (demande.Quoi == Genre::kEffacementUne) {
      DemandeEffacementUne();
    } else if (demande.Quoi == Genre::kEffacementToutes) {
      DemandeEffacementToutes();
    } else {
      LitDossier(std::move(demande));
    }
  }
}

void GaleriePhotos::LitDossier(Demande demande) {
  if (demande.Quoi == Genre::kOuverture || demande.Quoi == Genre::kRepli) {
    demande.Dossier = Ports_.Reglages.RepertoirePhoto;
  } else if (demande.Quoi != Genre::kRepointage) {
    demande.Dossier = Chemin_;
  }
  const QString dossier = demande.Dossier;
  EnCours_ = std::move(demande);
  Tarde_ = false;
  Ports_.Noms.LitNoms(dossier, Motif(), [this](const NomsPhotos& lus) { Recoit(lus); });
}

void GaleriePhotos::Abandonne() {
  Ports_.Noms.Oublie();
  const auto fin = std::move(EnCours_->Fin);
  EnCours_.reset();
  if (fin) fin();
}

// Closed before it was open: the window is not to come up any more.
void GaleriePhotos::OublieOuverture() {
  const auto ouvre = [](const Demande& d) { return d.Quoi == Genre::kOuverture || d.Quoi == Genre::kRepli; };
  std::erase_if(Attente_, ouvre);
  if (!EnCours_ || !ouvre(*EnCours_)) return;
  Abandonne();
  LanceSuivante();
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
  const Demande demande = std::move(*EnCours_);
  EnCours_.reset();
  try {
    Applique(demande, lus);
  } catch (const Echec&) {
    if (demande.Fin) demande.Fin();
    LanceSuivante();
    throw;
  }
  if (demande.Fin) demande.Fin();
  AnnonceRestees(demande.Voulues);
  LanceSuivante();
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
  if (quoi == Genre::kRelecture || quoi == Genre::kSuiteEffacement) return;
  Place_ = Place::kSansReponse;
  NomAvis_ = EnCours_->Dossier;
  QuitteListe(*EnCours_);
  Affichage_->MontreAvis(AvisSansReponse(Ports_.Reglages.LangueCourante, NomAvis_));
  if (quoi != Genre::kRepointage) Affichage_->MontreFenetre();
  AfficheNombrePhotos();
}

// The list stands on the folder that is waited for, without an entry as yet: a refresh asks that one again, and no
// photo of the folder before is shown or deleted where its names mean nothing.
void GaleriePhotos::QuitteListe(Demande& demande) {
  if (demande.Dossier == Chemin_) return;
  demande.Autre = true;
  Chemin_ = demande.Dossier;
  PrendListe({});
}

void GaleriePhotos::Applique(const Demande& demande, const NomsPhotos& lus) {
  if (Place_ == Place::kSansReponse) {
    Place_ = Place::kVide;
    Affichage_->MontrePhoto({});
  }
  if (demande.Quoi == Genre::kRepointage) {
    Repointe(demande, lus);
  } else if (demande.Quoi == Genre::kOuverture || demande.Quoi == Genre::kRepli) {
    PoursuitOuverture(demande, lus);
  } else {
    Relit(lus);
  }
}

void GaleriePhotos::PoursuitOuverture(const Demande& demande, const NomsPhotos& lus) {
  if (demande.Dossier != Ports_.Reglages.RepertoirePhoto) {
    // Another one was chosen while this one was read. It is opened, and not taken for a folder that fails.
    Attente_.push_front({.Quoi = Genre::kOuverture});
    return;
  }
  try {
    OuvreSur(demande, lus);
  } catch (const Echec&) {
    if (demande.Quoi == Genre::kOuverture) {
      // In memory only: the user's folder is lost for good no sooner than with the next save.
      Ports_.Reglages.RepertoirePhoto = Ports_.Dossiers.Donnees + QStringLiteral("\\intrus");
      Attente_.push_front({.Quoi = Genre::kRepli});
      return;
    }
    // Told by the guard of the event loop. The window comes up all the same: another folder is chosen there.
    AfficheNombrePhotos();
    Affichage_->MontreFenetre();
    throw;
  }
}

void GaleriePhotos::OuvreSur(const Demande& demande, const NomsPhotos& lus) {
  FixeChemin(demande, lus);  // takes the list, also where the folder is the one of before
  if (!Entrees_.isEmpty()) {
    ChargeEntree(0);
    // List and picture agree, without a click: a photo further down may have been selected when the window was hidden.
    Index_ = 0;
    Affichage_->MontreIndex(Index_);
  }
  Affichage_->AjusteAutourPhoto();
  Affichage_->MontreFenetre();
  AfficheNombrePhotos();
}

void GaleriePhotos::Repointe(const Demande& demande, const NomsPhotos& lus) {
  FixeChemin(demande, lus);
  if (!Entrees_.isEmpty()) ChargeEntree(0);
  AfficheNombrePhotos();
}

void GaleriePhotos::Relit(const NomsPhotos& lus) {
  PrendListe(lus.Noms);
  AfficheNombrePhotos();
  // An empty list would say that the photos are gone, when it is the folder, for instance with its volume.
  ExigeLisible(Chemin_, lus);
}

void GaleriePhotos::ExigeLisible(const QString& dossier, const NomsPhotos& lus) const {
  if (lus.Etat == EtatNoms::kLus) return;
  throw Echec(kFichierIntrouvable, DitRepertoireAbsent(Ports_.Reglages.LangueCourante, dossier));
}

// A folder that may not be read is as good as gone: taken for an empty one, it would hide the user's photos.
void GaleriePhotos::FixeChemin(const Demande& demande, const NomsPhotos& lus) {
  ExigeLisible(demande.Dossier, lus);
  const bool autre = demande.Autre || demande.Dossier != Chemin_;
  Chemin_ = demande.Dossier;
  if (autre) Index_ = -1;
  PrendListe(lus.Noms);
  // An empty folder leaves the picture of the one before in its place.
  if (!autre || Entrees_.isEmpty()) return;
  Index_ = 0;
  Affichage_->MontreIndex(Index_);
  Clique();
}

// A selected photo stays selected while it is there, wherever it stands now.
void GaleriePhotos::PrendListe(const QStringList& noms) {
  const QString choisie = Entrees_.value(Index_);
  Entrees_ = noms;
  Index_ = choisie.isEmpty() ? -1 : static_cast<int>(Entrees_.indexOf(choisie));
  Affichage_->MontreListe(Entrees_, Index_);
  DitListeVide();
}

}  // namespace vaktor
