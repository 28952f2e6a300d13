// SPDX-License-Identifier: GPL-3.0-or-later
// One thing after the other: what was asked of the gallery, and who has the turn.
#include <algorithm>
#include <utility>

#include "image/photo_gallery.h"

namespace vaktor {

void GaleriePhotos::Delie() {
  Ports_.Noms.Oublie();
  Ports_.Effaceur.Oublie();
  OubliePhotos();
  EnCours_.reset();
  Attente_.clear();
}

Occupation GaleriePhotos::DonneOccupation() const {
  if (!EnCours_) return Occupation::kAucune;
  if (EstEffacement(EnCours_->Quoi)) return Occupation::kEffacement;
  if (Tarde_) return Occupation::kDisqueMuet;
  // Behind a deletion that was broken off the list is read like any other: its disk may let everybody wait.
  const bool suite = EnCours_->Quoi == Genre::kSuiteEffacement && !EnCours_->Arretee;
  return suite ? Occupation::kEffacement : Occupation::kLecture;
}

void GaleriePhotos::Depose(Geste geste, Demande demande) {
  const Tour tour = DonneTour(DonneOccupation(), geste);
  if (tour == Tour::kJamais) return;
  demande.Numero = ++Numero_;
  Attente_.push_back(std::move(demande));
  if (tour == Tour::kRemplace) Abandonne();
  LanceSuivante();
}

// A reading that is late counts for nothing: asked for again, it is tried again.
bool GaleriePhotos::EstDeposee(Genre quoi) const {
  if (EnCours_ && !Tarde_ && EnCours_->Quoi == quoi) return true;
  return std::any_of(Attente_.begin(), Attente_.end(), [quoi](const Demande& d) { return d.Quoi == quoi; });
}

// Whatever a step throws, it has had its turn: what comes next must not wait for it.
void GaleriePhotos::LanceSuivante() {
  while (!EnCours_ && !Attente_.empty() && !Ports_.Etat.EnFermeture) {
    EnCours_ = std::move(Attente_.front());
    Attente_.pop_front();
    Tarde_ = false;
    const quint64 numero = EnCours_->Numero;
    try {
      EstEffacement(EnCours_->Quoi) ? DemandeEffacement() : LitDossier();
    } catch (...) {
      Cloture(numero, false);
      throw;
    }
  }
  LancePhoto();
}

// By its number, because a step may have ended in the middle of what it was waiting for. A list that could not be read
// shows of no photo whether it has gone: the next one does.
void GaleriePhotos::Cloture(quint64 numero, bool reussie) {
  if (!EstEnCours(numero)) return;
  if (!reussie) GardeVoulues();
  const Demande faite = std::move(*EnCours_);
  EnCours_.reset();
  if (faite.Fin) faite.Fin();
  if (!EstEffacement(faite.Quoi)) AnnonceRestees(faite.Voulues);
  LanceSuivante();
}

void GaleriePhotos::Reprend(Genre quoi, bool relue) {
  GardeVoulues();
  Attente_.push_front({.Quoi = quoi, .Relue = relue, .Numero = ++Numero_});
  Cloture(EnCours_->Numero, true);
}

void GaleriePhotos::Abandonne() {
  Ports_.Noms.Oublie();
  if (PhotoEnCours_ && PhotoEnCours_->Suite) OubliePhotos();
  GardeVoulues();
  const auto fin = std::move(EnCours_->Fin);
  EnCours_.reset();
  if (fin) fin();
}

// A list that was to show which photos a deletion has left does not come: the next one of that folder shows it as well.
void GaleriePhotos::GardeVoulues() {
  if (EstEffacement(EnCours_->Quoi) || EnCours_->Voulues.isEmpty()) return;
  DossierTentees_ = EnCours_->Dossier;
  Tentees_ = std::exchange(EnCours_->Voulues, {});
}

void GaleriePhotos::ReprendVoulues() {
  if (Tentees_.isEmpty() || DossierTentees_ != EnCours_->Dossier) return;
  EnCours_->Voulues += std::exchange(Tentees_, {});
}

// Closed before it was open: the window is not to come up any more.
void GaleriePhotos::OublieOuverture() {
  const auto ouvre = [](const Demande& d) { return d.Quoi == Genre::kOuverture || d.Quoi == Genre::kRepli; };
  std::erase_if(Attente_, ouvre);
  if (!EnCours_ || !ouvre(*EnCours_)) return;
  Abandonne();
  LanceSuivante();
}

// They were asked for before the list of another folder: their question would be about photos that nobody has seen.
void GaleriePhotos::OublieEffacements() {
  // Named photos of a named folder are another matter: their question says which.
  std::erase_if(Attente_, [](const Demande& d) { return EstEffacement(d.Quoi) && d.Quoi != Genre::kEffacementDes; });
}

}  // namespace vaktor
