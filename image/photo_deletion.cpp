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

void GaleriePhotos::SupprimePhoto() {
  if (Index_ < 0 || EnEffacement_) return;
  const QString entree = Entrees_.value(Index_);
  const QString question = Ports_.Textes.Messages(22) + QStringLiteral("\r\n\"") + entree + QStringLiteral("\" ?");
  if (Ports_.Boites.MontreMessage(question, QString(), BoutonsBoite::kOuiNon) != ReponseBoite::kOui) return;
  EnEffacement_ = true;
  EffaceUne(entree);
  EnEffacement_ = false;
  AnnonceRestees({entree});
}

void GaleriePhotos::EffaceUne(const QString& entree) {
  Efface(Ports_.Reglages.RepertoirePhoto, entree);
  Ports_.Pompe.PompeMessages();
  // The picture stays on display until another is shown.
  LitListe();
  AfficheNombrePhotos();
}

void GaleriePhotos::SupprimeTout() {
  if (EnEffacement_) return;
  if (Ports_.Boites.MontreMessage(Ports_.Textes.Messages(14), Ports_.Textes.Messages(15), BoutonsBoite::kOuiNon) !=
      ReponseBoite::kOui) {
    return;
  }
  // As the list is now: what comes into the folder from here on, also while events run, stays.
  const QStringList voulues = Entrees_;
  EnEffacement_ = true;
  EffaceToutes(voulues);
  EnEffacement_ = false;
  AnnonceRestees(voulues);
}

void GaleriePhotos::EffaceToutes(const QStringList& voulues) {
  const QString dossier = Ports_.Reglages.RepertoirePhoto;
  const int dernier = static_cast<int>(voulues.size()) - 1;  // -1 for an empty folder: the window opens and goes
  Affichage_->OuvreProgression(dernier);
  Ports_.Pompe.PompeMessages();
  for (int i = 0; i <= dernier; ++i) {
    Efface(dossier, voulues.at(i));
    Affichage_->AvanceProgression(i);
    if ((i + 1) % kPhotosEntrePompes == 0) Ports_.Pompe.PompeMessages();
    if (Ports_.Etat.EnFermeture) break;  // the end waits for nothing; the rest stays
  }
  LitListe();
  AfficheNombrePhotos();
  Affichage_->FermeProgression();
  Affichage_->MontrePhoto({});
  Place_ = Place::kVide;
  DitListeVide();
}

void GaleriePhotos::Efface(const QString& dossier, const QString& entree) {
  const QString chemin = CheminDe(dossier, entree);
  if (!chemin.isEmpty()) Ports_.Disque.Supprime(chemin);
}

// What the new list still shows was not deleted, whatever the file system said of it.
void GaleriePhotos::AnnonceRestees(const QStringList& voulues) {
  if (Ports_.Etat.EnFermeture) return;
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
