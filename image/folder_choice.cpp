// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/folder_choice.h"

#include <utility>

#include "base/failure.h"
#include "image/folder_words.h"
#include "image/free_space.h"
#include "texts/language.h"

namespace vaktor {
namespace {

bool Contient(const QString& dossier, const QString& chemin) {
  if (chemin == dossier || dossier == u'/') return true;
  return chemin.startsWith(dossier) && chemin.at(dossier.size()) == u'/';
}

/// The place that a folder is seen from: the deepest that holds it. The root holds every folder.
QString TrouveLieu(const QList<LieuDisque>& lieux, const QString& chemin) {
  QString meilleur = QStringLiteral("/");
  for (const LieuDisque& lieu : lieux) {
    if (lieu.Chemin.size() > meilleur.size() && Contient(lieu.Chemin, chemin)) meilleur = lieu.Chemin;
  }
  return meilleur;
}

}  // namespace

ChoixDossier::ChoixDossier(PortsChoixDossier ports) : Ports_(std::move(ports)) {}

void ChoixDossier::Charge() {
  Lecteur_.clear();
  Chemin_.clear();
  if (!PlaceSurRepertoire()) {
    // In memory only: it becomes lasting when the user accepts or something else saves.
    Ports_.Reglages.RepertoirePhoto = Ports_.Dossiers.PhotosParDefaut();
    PlaceSurRepertoire();
  }
  if (Chemin_.isEmpty()) PlaceSurPremierLieu();
  DemandeEspace();
}

// Where drives have letters, the first character of the folder names its drive. Here the drive is the place that the
// folder is seen from. False when the folder has gone. A disk that does not answer, perhaps only because it sleeps, is
// no reason to give up the user's folder.
bool ChoixDossier::PlaceSurRepertoire() {
  const QString chemin = Ports_.Arbre.DonneChemin(Ports_.Reglages.RepertoirePhoto);
  if (chemin.isEmpty()) return true;
  const EtatDossier etat = Ports_.Arbre.RegardeDossier(chemin);
  if (etat != EtatDossier::kBon && etat != EtatDossier::kSansReponse) return false;
  Lecteur_ = TrouveLieu(ListeLieux(), chemin);
  Chemin_ = chemin;
  return true;
}

// With no folder chosen, or with "\intrus" gone as well, the form still opens: this is when it is needed.
void ChoixDossier::PlaceSurPremierLieu() { Chemin_ = Lecteur_ = ListeLieux().first().Chemin; }

void ChoixDossier::ChangeLecteur(const QString& lieu) {
  if (lieu == Lecteur_) return;
  const EtatDossier etat = Ports_.Arbre.RegardeDossier(lieu);
  if (etat != EtatDossier::kBon) {
    // The volume has been pulled out since the list was made. The list goes back to where the tree still stands.
    if (SurChangement_) SurChangement_();
    Ports_.Boites.MontreMessage(DitEtatDossier(LangueParlee(Ports_.Reglages.LangueCourante), etat, lieu),
                                Ports_.Textes.Dit(Message::kTitre), BoutonsBoite::kOk);
    return;
  }
  Lecteur_ = lieu;
  PoseChemin(lieu);
  DemandeEspace();
  if (FreeBytes_ < kOctetsAvertissement) {
    // A warning and no question: whatever is answered, the drive stays chosen.
    Ports_.Boites.MontreMessage(Ports_.Textes.Dit(Message::kPeuDePlace), Ports_.Textes.Dit(Message::kTitre),
                                BoutonsBoite::kOkAnnuler);
  }
  Ports_.Reglages.ParametresModifies = true;
}

void ChoixDossier::ChangeDossier(const QString& chemin) {
  if (chemin == Chemin_) return;
  Chemin_ = chemin;
  // Browsing alone marks, also when the form is then closed without accepting: the next save writes the old folder.
  Ports_.Reglages.ParametresModifies = true;
}

void ChoixDossier::PoseChemin(const QString& chemin) {
  ChangeDossier(chemin);
  if (SurChangement_) SurChangement_();
}

// The drive is asked about by its path, not by the name that the list shows, of which no system knows the free space. A
// query that fails keeps the number of the one before, as does a disk that would keep the window waiting.
void ChoixDossier::DemandeEspace() {
  if (const std::optional<qint64> libres = Ports_.Arbre.EspaceLibre(Lecteur_)) FreeBytes_ = *libres;
}

void ChoixDossier::CreeDossier(const QString& nom) {
  const QString dossier = Chemin_ + u'\\' + nom;
  // Also false for a folder of that name that is there already: the tree does not move into it.
  if (!Ports_.Arbre.CreeDossier(dossier)) return;
  Ports_.Pompe.PompeMessages();
  PoseChemin(Ports_.Arbre.DonneChemin(dossier));
}

bool ChoixDossier::Valide() {
  Parametres& reglages = Ports_.Reglages;
  const EtatDossier etat = Ports_.Arbre.EssaieEcriture(Chemin_);
  if (etat != EtatDossier::kBon) {
    // Photos fail without a word: a new folder that cannot take a single one is refused before anything has changed.
    // The folder that is already in use is only told about, since there is nothing to go back to.
    Ports_.Boites.MontreMessage(DitDossierRefuse(LangueParlee(reglages.LangueCourante), etat, Chemin_,
                                                 Ports_.Arbre.DonneChemin(reglages.RepertoirePhoto)),
                                Ports_.Textes.Dit(Message::kTitre), BoutonsBoite::kOk);
    if (Chemin_ != Ports_.Arbre.DonneChemin(reglages.RepertoirePhoto)) return false;
  }
  const QString avant = std::exchange(reglages.RepertoirePhoto, Chemin_);
  try {
    if (reglages.ParametresModifies) Ports_.Sauvegarde.SauveParametres();
  } catch (const Echec& echec) {
    // A folder that the next start does not know would lose its photos from sight: the choice is none. The gallery has
    // not followed yet, and the form stays for another try.
    reglages.RepertoirePhoto = avant;
    Ports_.Boites.MontreMessage(DitDossierNonSauve(LangueParlee(reglages.LangueCourante), echec.Description(),
                                                   Ports_.Arbre.DonneChemin(reglages.RepertoirePhoto)),
                                Ports_.Textes.Dit(Message::kTitre), BoutonsBoite::kOk);
    return false;
  } catch (...) {
    reglages.RepertoirePhoto = avant;
    throw;
  }
  return true;
}

}  // namespace vaktor
