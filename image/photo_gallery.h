// SPDX-License-Identifier: GPL-3.0-or-later
// The photo gallery: one folder of photos, its list, the photo that is shown, deletion, the limit on the number.
#pragma once

#include <QStringList>
#include <deque>
#include <functional>
#include <optional>

#include "base/application_state.h"
#include "base/failure.h"
#include "base/ports/message_boxes.h"
#include "base/ports/opener.h"
#include "base/program_folders.h"
#include "image/gallery_turns.h"
#include "image/ports/gallery_display.h"
#include "image/ports/photo_eraser.h"
#include "image/ports/photo_names.h"
#include "image/ports/photo_reader.h"
#include "settings/parameters.h"
#include "settings/saving.h"
#include "texts/text_tables.h"

namespace vaktor {

/// All references outlive the gallery.
struct PortsGalerie {
  Parametres& Reglages;
  const DossiersProgramme& Dossiers;
  const EtatApplication& Etat;
  SauvegardeParametres& Sauvegarde;
  const TablesTextes& Textes;
  LecteurNoms& Noms;
  LecteurPhotos& Lecteur;
  EffaceurPhotos& Effaceur;
  BoitesMessage& Boites;
  Ouvreur& Bureau;
};

/// The rules behind FormVisuPhoto. Entries are file names without folder, sorted by name; the list is not watched.
/// Photos are shown from RepertoirePhoto, "\", entry, whatever folder the list was read from. Deleted they are in the
/// folder of the list and in no other.
///
/// Folders and photos are read, and photos deleted, while the window and detection go on. What is asked for meanwhile
/// waits its turn (gallery_turns.h), so that each step finds what the one before it left, as if nothing had been waited
/// for. Failures come out of the event loop, and leave a list that can be worked with.
///
/// Owner: app/. User-interface thread.
class GaleriePhotos {
 public:
  explicit GaleriePhotos(const PortsGalerie& ports);

  /// Once, before any other call; the display outlives the last call but Delie.
  void Relie(AffichageGalerie& affichage) { Affichage_ = &affichage; }
  /// Throws Echec when Relie was forgotten. The start asks.
  void ExigeLien() const {
    if (Affichage_ == nullptr) LanceNonRelie("GaleriePhotos");
  }
  /// The display goes: what is asked for and not yet done is forgotten.
  void Delie();

  // Reading the folder (photo_listing.cpp).

  /// Opens the gallery on RepertoirePhoto. A folder that is gone or may not be read, or a first photo that cannot be
  /// shown makes it the program's own (DossiersProgramme::PhotosParDefaut), in memory, without a word; for one that is
  /// gone when it is to be read the list is read once more before. Fails with an Echec when that one fails too; the
  /// window is up even then. A disk that does not answer, or fails in the middle, and want of memory are said, and the
  /// folder stays. Asked for again while it opens, it opens once.
  void OuvreGalerie();
  /// The list takes another folder and is read anew; the first entry of another folder counts as clicked. Then the
  /// first entry is loaded, the photos are counted, and `fini` is called, once, also before a failure. Deletions that
  /// wait are dropped: they were about the folder before. Fails with an Echec when the folder is not there or may not
  /// be read, or the photo cannot be shown.
  void RepointeSur(const QString& dossier, std::function<void()> fini);
  /// CmdRefresh. Fails with an Echec when the folder is gone; the list is empty then.
  void Rafraichit();

  void OuvreRepertoire() const;  ///< CmdOpenRepPhot: the folder in the file manager
  /// Caption: "Intrusions : ", the number of entries, " Photo(s)" or " Picture(s)".
  void AfficheNombrePhotos();
  /// Says in the language of the moment what stands in the place of a picture.
  void RedisAvis();

  // The events of FilePhotoVisu. An index of -1 means that no entry is selected. One photo is read at a time, and the
  // newest that was asked for comes next; one that comes late is shown only if it is still the selected one.
  void ChoisitIndex(int index) { Index_ = index; }  ///< the user selects; shows nothing yet
  void Clique();                                    ///< also the arrow keys
  bool AppuieBoutonDroit();                         ///< true: Mnu_file is to be opened
  void GlisseGauche();                              ///< mouse moved with the left button held

  // Deletion (photo_deletion.cpp). Each asks first; photos that stay are named in one message.
  void SupprimePhoto();
  void SupprimeTout();
  /// These photos of a folder (stored form), whatever the list shows, after this question. `fini` is called once: when
  /// they are gone or what can go is, the user says no, or another deletion has the turn. The list is read anew if it
  /// is of that folder.
  void SupprimeDes(const QString& dossier, const QStringList& noms, const QString& question,
                   std::function<void()> fini);

  /// TxtNbrPhotDisk has this text now: gives the one that it is to have, and NombrePhotoMax its value. `lue`: it comes
  /// from the store. It is cleaned like any other, but marks nothing: a start alone leaves nothing to save.
  QString ChangeLimite(const QString& texte, bool lue = false);
  /// The window is asked to close: saves, always, and an opening that is still under way is none any more. True when it
  /// may, false when it is only to be hidden. Throws Echec.
  bool DemandeFermeture();

  const QStringList& Entrees() const { return Entrees_; }
  int Index() const { return Index_; }
  int DernierIndexAffiche() const { return DernierIndexAffiche_; }

 private:
  enum class Place { kVide, kPhoto, kAvis, kAucunePhoto, kSansReponse };
  enum class Genre {
    kOuverture,
    kRepli,
    kRepointage,
    kRelecture,
    kSuiteEffacement,
    kEffacementUne,
    kEffacementToutes,
    kEffacementDes
  };
  /// What waits for its turn or has it; all but the last two read a folder.
  struct Demande {
    Genre Quoi = Genre::kRelecture;
    QString Dossier = {};            // that is read, from then on; whose photos are deleted
    bool Autre = false;              // the list has already left another folder for it
    std::function<void()> Fin = {};  // called once: when it is done, has failed or is late
    QStringList Voulues = {};        // photos to be deleted; of a reading: those that the list still shows are named
    QStringList Chemins = {};        // of Voulues, as many
    qsizetype Essayees = 0;          // of Chemins
    bool Arretee = false;            // kSuiteEffacement: the deletion did not come to its end
    bool Relue = false;              // the list is read anew because its first photo had gone
    quint64 Numero = 0;              // tells it from any other
    QString Question = {};           // kEffacementDes
  };
  /// A photo that is to be read. Only the first of a folder that is opened has a continuation: whether it can be shown
  /// decides how the opening goes on.
  struct DemandePhoto {
    QString Entree = {};
    std::function<void(const PhotoLue&)> Suite = {};
    quint64 Numero = 0;
  };

  // Turns (photo_turns.cpp).
  Occupation DonneOccupation() const;
  void Depose(Geste geste, Demande demande);
  bool EstDeposee(Genre quoi) const;
  static bool EstEffacement(Genre quoi) {
    return quoi == Genre::kEffacementUne || quoi == Genre::kEffacementToutes || quoi == Genre::kEffacementDes;
  }
  bool EstEnCours(quint64 numero) const { return EnCours_ && EnCours_->Numero == numero; }
  void LanceSuivante();
  void Cloture(quint64 numero, bool reussie);
  void Reprend(Genre quoi, bool relue = false);
  void Abandonne();
  void GardeVoulues();
  void ReprendVoulues();
  void OublieOuverture();
  void OublieEffacements();

  // Folder (photo_listing.cpp).
  void LitDossier();
  void Recoit(const NomsPhotos& lus);
  void Patiente();
  void QuitteListe();
  void Applique(const NomsPhotos& lus);
  void PoursuitOuverture(const NomsPhotos& lus);
  void OuvreSur(const PhotoLue& lue, EtatNoms etat);
  bool Replie();
  void MontreMalgreTout();
  void AcheveOuverture(EtatNoms etat);
  void Repointe(const NomsPhotos& lus);
  void Relit(const NomsPhotos& lus);
  void AcheveLecture(EtatNoms etat, const std::function<void()>& exige);
  void ExigeLecture(const QString& dossier, EtatNoms etat) const;
  void FixeChemin(const NomsPhotos& lus);
  void ChangeChemin(const QString& dossier);
  void ChoisitPremiere();
  void PrendListe(const QStringList& noms);
  void LitPremiere(std::function<void(const PhotoLue&)> suite);

  // Photo (photo_gallery.cpp).
  void MontreEntree();
  void DemandeLaPhoto(const QString& entree, std::function<void(const PhotoLue&)> suite);
  void LancePhoto();
  void RecoitPhoto(const PhotoLue& lue);
  bool EstAttendue(const QString& entree) const;
  void OubliePhotos();
  void OublieImage();
  void DitPhoto(const PhotoLue& lue, const QString& entree);
  static bool DitDeLaPhoto(EtatPhoto etat);  // not shown, and for a reason that lies in the photo
  void ExigeMontrable(const PhotoLue& lue, const QString& entree) const;
  void DitListeVide();
  static QString CheminDe(const QString& dossier, const QString& entree);

  // Deletion (photo_deletion.cpp).
  void DemandeEffacement();
  bool DemandeAccord(const QStringList& voulues);
  void PoursuitEffacement();
  void RecoitTranche(const TrancheEffacee& tranche);
  void ArreteEffacement(EtatEffacement etat);
  void RelitApresEffacement(bool arretee);
  void TermineEffacement();
  void AnnonceRestees(const QStringList& voulues);
  void AnnonceBoite(const QString& message);

  PortsGalerie Ports_;
  AffichageGalerie* Affichage_ = nullptr;
  QString Chemin_;  // of the folder that the list was read from
  QStringList Entrees_;
  int Index_ = -1;
  int DernierIndexAffiche_ = 0;
  Place Place_ = Place::kVide;
  EtatPhoto EtatAvis_ = EtatPhoto::kLue;
  Dommage Defaut_ = Dommage::kAucun;  // of the picture that is shown
  QString NomAvis_;                   // of the photo, or of the folder, that the words are about

  quint64 Numero_ = 0;              // of the last request
  std::optional<Demande> EnCours_;  // has its turn
  bool Tarde_ = false;              // its disk does not answer: what comes next does not wait for it
  std::deque<Demande> Attente_;
  QStringList Tentees_;     // deleted, and no list has come since that would show which of them stayed
  QString DossierTentees_;  // theirs

  std::optional<DemandePhoto> PhotoEnCours_;  // is being read
  bool PhotoTarde_ = false;                   // and its disk does not answer
  std::optional<DemandePhoto> PhotoVoulue_;   // waits for it
};

}  // namespace vaktor
