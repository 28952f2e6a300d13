// Deletion of one photo and of all that the list shows.
#include <QSet>

#include "image/gallery_words.h"
#include "image/photo_gallery.h"

namespace vaktor {
namespace {

// Deleting tens of thousands of photos takes seconds; after so many the waiting events run, so that detection keeps its
// cadence.
constexpr int kPhotosEntrePompes = 100;

}  // namespace

// What is being read decides which photo is selected, and in which folder: the question waits for it.
void GaleriePhotos::SupprimePhoto() {
  if (EnEffacement_ || EstDeposee(Genre::kEffacementUne)) return;
  Depose({.Quoi = Genre::kEffacementUne});
}

void GaleriePhotos::SupprimeTout() {
  if (EnEffacement_ || EstDeposee(Genre::kEffacementToutes)) return;
  Depose({.Quoi = Genre::kEffacementToutes});
}

void GaleriePhotos::DemandeEffacementUne() {
  if (Index_ < 0) return;
  const QString entree = Entrees_.value(Index_);
  const QString question = Ports_.Textes.Messages(22) + QStringLiteral("\r\n\"") + entree + QStringLiteral("\" ?");
  if (Ports_.Boites.MontreMessage(question, QString(), BoutonsBoite::kOuiNon) == ReponseBoite::kOui) EffaceUne(entree);
}

void GaleriePhotos::EffaceUne(const QString& entree) {
  EnEffacement_ = true;
  Efface(Ports_.Reglages.RepertoirePhoto, entree);
  Ports_.Pompe.PompeMessages();
  // The picture stays on display until another is shown.
  Depose({.Quoi = Genre::kSuiteEffacement, .Fin = [this] { EnEffacement_ = false; }, .Voulues = {entree}});
}

void GaleriePhotos::DemandeEffacementToutes() {
  if (Ports_.Boites.MontreMessage(Ports_.Textes.Messages(14), Ports_.Textes.Messages(15), BoutonsBoite::kOuiNon) !=
      ReponseBoite::kOui) {
    return;
  }
  // As the list is now: what comes into the folder from here on, also while events run, stays.
  const QStringList voulues = Entrees_;
  EffaceToutes(voulues);
}

void GaleriePhotos::EffaceToutes(const QStringList& voulues) {
  const QString dossier = Ports_.Reglages.RepertoirePhoto;
  const int dernier = static_cast<int>(voulues.size()) - 1;  // -1 for an empty folder: the window opens and goes
  EnEffacement_ = true;
  Affichage_->OuvreProgression(dernier);
  Ports_.Pompe.PompeMessages();
  for (int i = 0; i <= dernier; ++i) {
    Efface(dossier, voulues.at(i));
    Affichage_->AvanceProgression(i);
    if ((i + 1) % kPhotosEntrePompes == 0) Ports_.Pompe.PompeMessages();
    if (Ports_.Etat.EnFermeture) {  // the end waits for nothing; the rest stays
      TermineEffacement();
      return;
    }
  }
  Depose({.Quoi = Genre::kSuiteEffacement, .Fin = [this] { TermineEffacement(); }, .Voulues = voulues});
}

void GaleriePhotos::TermineEffacement() {
  Affichage_->FermeProgression();
  Affichage_->MontrePhoto({});
  Place_ = Place::kVide;
  DitListeVide();
  EnEffacement_ = false;
}

void GaleriePhotos::Efface(const QString& dossier, const QString& entree) {
  const QString chemin = CheminDe(dossier, entree);
  if (!chemin.isEmpty()) Ports_.Disque.Supprime(chemin);
}

// What the new list still shows was not deleted, whatever the file system said of it. A list that comes late says so
// late: a disk may need its time for what was deleted.
void GaleriePhotos::AnnonceRestees(const QStringList& voulues) {
  if (voulues.isEmpty() || Ports_.Etat.EnFermeture) return;
  const QSet<QString> listees(Entrees_.cbegin(), Entrees_.cend());
  QStringList restees;
  for (const QString& entree : voulues) {
    if (listees.contains(entree)) restees += entree;
  }
  if (restees.isEmpty()) return;
  Ports_.Boites.MontreMessage(DitPhotosRestees(Ports_.Reglages.LangueCourante, restees), Ports_.Textes.Messages(4),
                              BoutonsBoite::kOk);
}

}  // namespace vaktor
