// The photo gallery: one folder of photos, its list, the photo that is shown, deletion, the limit on the number.
#pragma once

#include <QStringList>
#include <deque>
#include <functional>
#include <optional>

#include "base/application_state.h"
#include "base/ports/message_boxes.h"
#include "base/ports/opener.h"
#include "base/program_folders.h"
#include "engine/ports/event_pump.h"
#include "image/ports/gallery_display.h"
#include "image/ports/photo_names.h"
#include "image/ports/photo_reader.h"
#include "settings/parameters.h"
#include "settings/ports/files.h"
#include "settings/saving.h"
#include "ui/texts/text_tables.h"

namespace vaktor {

/// All references outlive the gallery.
struct PortsGalerie {
  Parametres& Reglages;
  const DossiersProgramme& Dossiers;
  const EtatApplication& Etat;
  SauvegardeParametres& Sauvegarde;
  const TablesTextes& Textes;
  Fichiers& Disque;
  LecteurNoms& Noms;
  const LecteurPhotos& Lecteur;
  BoitesMessage& Boites;
  PompeEvenements& Pompe;
  Ouvreur& Bureau;
};

/// The rules behind FormVisuPhoto. Entries are file names without folder, sorted by name; the list is not watched.
/// Photos are read and deleted at RepertoirePhoto, "\", entry, whatever folder the list was read from.
///
/// A folder of tens of thousands is read while the window and detection go on. What is asked for meanwhile waits its
/// turn, so that each step finds what the one before it left, as if nothing had been waited for. Failures come out of
/// the event loop.
///
/// Owner: app/. User-interface thread; while a deletion lets events run, every call finds a whole list, and a second
/// deletion does nothing.
class GaleriePhotos {
 public:
  explicit GaleriePhotos(const PortsGalerie& ports);

  /// Once, before any other call; the display outlives the last call but Delie.
  void Relie(AffichageGalerie& affichage) { Affichage_ = &affichage; }
  /// The display goes: what is asked for and not yet done is forgotten.
  void Delie();

  // Reading the folder (photo_listing.cpp).

  /// Opens the gallery on RepertoirePhoto. A folder that is gone or may not be read, or a first photo that cannot be
  /// shown makes it the folder "\intrus" of the program, in memory, without a word. Fails with an Echec when that one
  /// fails too; the window is up even then. Asked for again while it opens, it opens once.
  void OuvreGalerie();
  /// The list takes another folder and is read anew; the first entry of another folder counts as clicked. Then the
  /// first entry is loaded, the photos are counted, and `fini` is called, once, also before a failure. Fails with an
  /// Echec when the folder is not there or may not be read, or the photo cannot be shown.
  void RepointeSur(const QString& dossier, std::function<void()> fini);
  void Rafraichit();  ///< CmdRefresh. Fails with an Echec when the folder is gone; the list is empty then

  void OuvreRepertoire() const;  ///< CmdOpenRepPhot: the folder in the file manager
  /// Caption: "Intrusions : ", the number of entries, " Photo(s)" or " Picture(s)".
  void AfficheNombrePhotos();
  /// Says in the language of the moment what stands in the place of a picture.
  void RedisAvis();

  // The events of FilePhotoVisu. An index of -1 means that no entry is selected.
  void ChoisitIndex(int index) { Index_ = index; }  ///< the user selects; shows nothing yet
  void Clique();                                    ///< also the arrow keys
  bool AppuieBoutonDroit();                         ///< true: Mnu_file is to be opened
  void GlisseGauche();                              ///< mouse moved with the left button held

  // Deletion (photo_deletion.cpp). Each asks first; photos that stay are named in one message.
  void SupprimePhoto();
  void SupprimeTout();

  /// TxtNbrPhotDisk has this text now: gives the one that it is to have, and NombrePhotoMax its value.
  QString ChangeLimite(const QString& texte);
  /// The window is asked to close: saves, always, and an opening that is still under way is none any more. True when it
  /// may, false when it is only to be hidden. Throws Echec.
  bool DemandeFermeture();

  const QStringList& Entrees() const { return Entrees_; }
  int Index() const { return Index_; }
  int DernierIndexAffiche() const { return DernierIndexAffiche_; }

 private:
  enum class Place { kVide, kPhoto, kAvis, kAucunePhoto, kSansReponse };
  enum class Genre { kOuverture, kRepli, kRepointage, kRelecture, kSuiteEffacement, kEffacementUne, kEffacementToutes };
  /// What waits for its turn; all but the last two read a folder.
  struct Demande {
    Genre Quoi = Genre::kRelecture;
    QString Dossier = {};            // that is read, from then on
    bool Autre = false;              // the list has already left another folder for it
    std::function<void()> Fin = {};  // called once: when it is done, has failed or is late
    QStringList Voulues = {};        // kSuiteEffacement: those that the list still shows then are named
  };

  void Depose(Demande demande);
  bool EstDeposee(Genre quoi) const;
  bool Attend() const { return EnCours_.has_value() || !Attente_.empty(); }
  void LanceSuivante();
  void LitDossier(Demande demande);
  void Abandonne();
  void OublieOuverture();
  void Recoit(const NomsPhotos& lus);
  void Patiente();
  void QuitteListe(Demande& demande);
  void Applique(const Demande& demande, const NomsPhotos& lus);
  void PoursuitOuverture(const Demande& demande, const NomsPhotos& lus);
  void OuvreSur(const Demande& demande, const NomsPhotos& lus);
  void Repointe(const Demande& demande, const NomsPhotos& lus);
  void Relit(const NomsPhotos& lus);
  void ExigeLisible(const QString& dossier, const NomsPhotos& lus) const;
  void FixeChemin(const Demande& demande, const NomsPhotos& lus);
  void PrendListe(const QStringList& noms);
  void MontreEntree();
  PhotoLue LitEntree(const QString& entree) const;
  void ChargeEntree(int index);
  void DitPhoto(const PhotoLue& lue, const QString& entree);
  void DitListeVide();
  static QString CheminDe(const QString& dossier, const QString& entree);
  void Efface(const QString& dossier, const QString& entree);
  void DemandeEffacementUne();
  void DemandeEffacementToutes();
  void EffaceUne(const QString& entree);
  void EffaceToutes(const QStringList& voulues);
  void TermineEffacement();
  void AnnonceRestees(const QStringList& voulues);

  PortsGalerie Ports_;
  AffichageGalerie* Affichage_ = nullptr;
  QString Chemin_;
  QStringList Entrees_;
  int Index_ = -1;
  int DernierIndexAffiche_ = 0;
  Place Place_ = Place::kVide;
  EtatPhoto EtatAvis_ = EtatPhoto::kLue;
  Dommage Defaut_ = Dommage::kAucun;  // of the picture that is shown
  QString NomAvis_;                   // of the photo, or of the folder, that the words are about
  bool EnEffacement_ = false;
  std::optional<Demande> EnCours_;  // its folder is being read
  bool Tarde_ = false;              // and does not answer: what comes next does not wait for it
  std::deque<Demande> Attente_;
};

}  // namespace vaktor
