// SPDX-License-Identifier: GPL-3.0-or-later
// Deletion of one photo and of all that the list shows.
#include <QSet>
#include <utility>

#include "image/gallery_words.h"
#include "image/photo_gallery.h"
#include "texts/language.h"

namespace vaktor {

// What is being read decides which photo is selected, and in which folder: the question waits for it.
void GaleriePhotos::SupprimePhoto() {
  if (!EstDeposee(Genre::kEffacementUne)) Depose(Geste::kEfface, {.Quoi = Genre::kEffacementUne});
}

void GaleriePhotos::SupprimeTout() {
  if (!EstDeposee(Genre::kEffacementToutes)) Depose(Geste::kEfface, {.Quoi = Genre::kEffacementToutes});
}

void GaleriePhotos::SupprimeDes(const QString& dossier, const QStringList& noms, const QString& question,
                                std::function<void()> fini) {
  if (EstDeposee(Genre::kEffacementDes) || DonneTour(DonneOccupation(), Geste::kEfface) == Tour::kJamais) {
    fini();
    return;
  }
  Depose(Geste::kEfface, {.Quoi = Genre::kEffacementDes,
                          .Dossier = dossier,
                          .Fin = std::move(fini),
                          .Voulues = noms,
                          .Question = question});
}

// Names as they are when the question comes up: what comes into the folder from here on stays. A folder that is chosen
// meanwhile waits its turn, and none of its photos is meant.
void GaleriePhotos::DemandeEffacement() {
  const bool toutes = EnCours_->Quoi == Genre::kEffacementToutes;
  const quint64 numero = EnCours_->Numero;
  const bool nommees = EnCours_->Quoi == Genre::kEffacementDes;
  const QStringList voulues = nommees  ? EnCours_->Voulues
                              : toutes ? Entrees_
                                       : QStringList(Entrees_.mid(Index_, Index_ < 0 ? 0 : 1));
  const bool accord = (toutes || !voulues.isEmpty()) && DemandeAccord(voulues);
  // Events have run under the question, the end of the window or of the program among them.
  if (!EstEnCours(numero)) return;
  if (!accord || Ports_.Etat.EnFermeture) {
    Cloture(numero, true);
    return;
  }
  EnCours_->Voulues = voulues;
  EnCours_->Chemins.reserve(voulues.size());
  const QString dossier = nommees ? EnCours_->Dossier : Chemin_;
  for (const QString& entree : voulues) EnCours_->Chemins += CheminDe(dossier, entree);
  if (toutes) {
    EnCours_->Fin = [this] { TermineEffacement(); };
    Affichage_->OuvreProgression(static_cast<int>(voulues.size()) - 1);  // -1 for an empty folder: it opens and goes
  }
  PoursuitEffacement();
}

bool GaleriePhotos::DemandeAccord(const QStringList& voulues) {
  const TablesTextes& textes = Ports_.Textes;
  const bool toutes = EnCours_->Quoi != Genre::kEffacementUne;
  const QString question = EnCours_->Quoi == Genre::kEffacementDes ? EnCours_->Question
                           : toutes                                ? textes.Dit(Message::kEffaceTout)
                                    : textes.Dit(Message::kEffacePhoto) + QStringLiteral("\r\n\"") + voulues.first() +
                                          QStringLiteral("\" ?");
  const QString titre = toutes ? textes.Dit(Message::kTitreEffaceTout) : QString();
  return Ports_.Boites.MontreMessage(question, titre, BoutonsBoite::kOuiNon) == ReponseBoite::kOui;
}

// Slice by slice, from the event loop: the window and detection go on between them.
void GaleriePhotos::PoursuitEffacement() {
  if (EnCours_->Essayees >= EnCours_->Chemins.size()) {
    RelitApresEffacement(false);
    return;
  }
  const QStringList chemins = EnCours_->Chemins;
  Ports_.Effaceur.Efface(chemins, EnCours_->Essayees,
                         [this](const TrancheEffacee& tranche) { RecoitTranche(tranche); });
}

void GaleriePhotos::RecoitTranche(const TrancheEffacee& tranche) {
  if (Ports_.Etat.EnFermeture) {  // the end waits for nothing; the rest stays
    Abandonne();
    return;
  }
  const quint64 numero = EnCours_->Numero;
  try {
    EnCours_->Essayees += tranche.Essayees;
    if (EnCours_->Quoi == Genre::kEffacementToutes && tranche.Essayees > 0) {
      Affichage_->AvanceProgression(static_cast<int>(EnCours_->Essayees) - 1);
    }
    tranche.Etat == EtatEffacement::kFait ? PoursuitEffacement() : ArreteEffacement(tranche.Etat);
  } catch (...) {
    Cloture(numero, false);
    throw;
  }
}

// What was not tried is named at once: the list, which would tell, lies on the disk that keeps everybody waiting.
void GaleriePhotos::ArreteEffacement(EtatEffacement etat) {
  const QStringList restees = EnCours_->Voulues.mid(EnCours_->Essayees);
  EnCours_->Voulues.resize(EnCours_->Essayees);
  if (const auto fin = std::exchange(EnCours_->Fin, nullptr)) fin();
  RelitApresEffacement(true);
  if (!restees.isEmpty())
    AnnonceBoite(DitEffacementArrete(LangueParlee(Ports_.Reglages.LangueCourante), etat, restees));
}

// The picture of a single photo stays on display until another is shown.
void GaleriePhotos::RelitApresEffacement(bool arretee) {
  // Photos of a folder that no list shows: whoever asked looks for himself.
  if (EnCours_->Quoi == Genre::kEffacementDes && EnCours_->Dossier != Chemin_) {
    Cloture(EnCours_->Numero, true);
    return;
  }
  Attente_.push_front({.Quoi = Genre::kSuiteEffacement,
                       .Fin = std::move(EnCours_->Fin),
                       .Voulues = std::move(EnCours_->Voulues),
                       .Arretee = arretee,
                       .Numero = ++Numero_});
  EnCours_.reset();
  LanceSuivante();
}

void GaleriePhotos::TermineEffacement() {
  OubliePhotos();
  Affichage_->FermeProgression();
  Affichage_->MontrePhoto({});
  Place_ = Place::kVide;
  DitListeVide();
}

// What the new list still shows was not deleted, whatever the file system said of it. A list that comes late says so
// late: a disk may need its time for what was deleted.
void GaleriePhotos::AnnonceRestees(const QStringList& voulues) {
  QSet<QString> listees(Entrees_.cbegin(), Entrees_.cend());
  QStringList restees;
  for (const QString& entree : voulues) {
    if (listees.remove(entree)) restees += entree;  // once, also when it was tried twice
  }
  if (!restees.isEmpty()) AnnonceBoite(DitPhotosRestees(LangueParlee(Ports_.Reglages.LangueCourante), restees));
}

void GaleriePhotos::AnnonceBoite(const QString& message) {
  if (Ports_.Etat.EnFermeture) return;
  Ports_.Boites.MontreMessage(message, Ports_.Textes.Dit(Message::kTitre), BoutonsBoite::kOk);
}

}  // namespace vaktor
