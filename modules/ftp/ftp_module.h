// SPDX-License-Identifier: GPL-3.0-or-later
// The FTP companion's rules: when to connect, what goes first, what is said to the main program.
#pragma once

#include <QFileInfo>
#include <array>
#include <memory>

#include "modules/common/module_program.h"
#include "modules/ftp/ftp_notices.h"
#include "modules/ftp/ftp_worker.h"
#include "modules/ftp/live_page.h"
#include "modules/ftp/photo_queue.h"
#include "modules/ftp/published_photos.h"
#include "modules/ftp/site_memory.h"
#include "modules/ftp/site_space.h"

namespace vaktor {

/// One job at a time goes to the worker. Of the live images only the newest counts: "Surve" leaves a mark, and the file
/// is read when its turn comes. Live images and photos take turns, so that neither starves the other.
///
/// A connection that was there once, in this run or in an earlier one, is taken up again by itself, however long that
/// takes; the main program is told "Netdc", which leaves the user's switch on. A connection that never stood fails in
/// its own word, which turns it off.
///
/// An alarm brings thirty photos a second, and a site is to be looked at: about one of each second is published, the
/// newest first, and the oldest that lie there are deleted when there are too many. What the site does not get is in
/// the user's own folder.
class ModuleFtp : public Module {
 public:
  /// Milliseconds before the next attempt; the last one repeats.
  static constexpr std::array<qint32, 6> kReprises = {2000, 5000, 10000, 20000, 40000, 60000};
  static constexpr int kRefusMax = 5;  ///< refusals of a login that worked before: our own dead connection often counts
                                       ///< against us for a while
  static constexpr int kCoupuresMax = 3;         ///< connections lost before anything at all was uploaded
  static constexpr qint32 kSigne = 60000;        ///< milliseconds between two signs of life
  static constexpr qint32 kRegard = 2000;        ///< between two looks for photos
  static constexpr qint32 kRegardLent = 30000;   ///< while not connected, for the bound on what waits
  static constexpr qint32 kPausePhotos = 60000;  ///< without photos after kRefusPhotos in a row were refused
  static constexpr int kRefusPhotos = 3;
  static constexpr qint32 kRythmePage = 10000;  ///< between two pages that were renewed by themselves
  static constexpr int kIntervallesNeuf = 3;    ///< intervals after which a live image is not new any more
  static constexpr qint32 kNeufMin = 5000;      ///< but at least so long, milliseconds
  /// Milliseconds without a photo that had to be deleted here, after which the next one is news.
  static constexpr qint64 kSansPlace = 600'000;
  /// Milliseconds that a photo's time may be ahead of the clock: a disk has one of its own. More says that ours was set
  /// back.
  static constexpr qint64 kAvance = 60'000;
  static constexpr qint32 kCalme = 1500;  ///< after an upload, until "monitoring active" is shown again

  ModuleFtp(const ContexteModule& contexte, std::unique_ptr<OuvrierFtp> ouvrier);

  void PrendReglages(const ReglagesModule& reglages) override;
  /// "*OKO*", early; the main program would take a late one for a second set of start arguments, and switch off what
  /// the first has switched on. Late, the first "Conne" may have gone to nobody: "Netdc" has the main program ask again
  /// a minute later if its switch is on, and "Decon" shows what is true meanwhile.
  /// Started again while the main program ran: nothing. It sends "Conne" by itself if its switch is on, and shows what
  /// is true. A connection for an earlier main program ends.
  void Enregistre(Inscription comment) override;
  void ExecuteCommande(Commande commande) override;
  void Termine() override;

 private:
  enum class Lien { kArrete, kConnexion, kConnecte, kPerdu };
  enum class Tache { kAucune, kConnexion, kLive, kPageDemandee, kPageSeule, kPhoto, kNettoyage, kSigne };

  // Commands.
  void Connecte();
  void DemandeLive();
  /// Whether the live image on disk may be published. What lies there after a connection was lost, or after the camera
  /// was, was published before or is old: with the server's time of now it would look alive.
  bool EstLiveNeuf() const;
  void DemandePage();
  /// "connecting", "no connection" or the word that ended it: what is true while nothing can be uploaded.
  void DisEtat();

  // The link.
  void LanceConnexion();
  void FinitConnexion(const ResultatFtp& resultat);
  void Echoue(const ResultatFtp& resultat);
  void Perd();
  void Arrete(const QString& mot);

  // Uploads.
  void Avance();
  Tache ChoisitTache() const;
  void Execute(Tache tache);
  void Lance(Tache tache);
  /// Wanted still: it has not arrived.
  void Redemande(Tache tache);
  TravailFtp CreeTravail(Tache tache) const;
  void Finit(Tache tache, const ResultatFtp& resultat);
  void FinitLive(const ResultatFtp& resultat);
  void FinitPage(bool demandee, const ResultatFtp& resultat);
  void FinitPhoto(const ResultatFtp& resultat);
  void RefusePhoto(const ResultatFtp& resultat);
  void NotePhotoCoupee();
  void FinitNettoyage();
  /// A server without room: what is oldest there goes at once. False when nothing of ours is known to lie there.
  bool FaitPlace(const ResultatFtp& resultat);
  /// Those that the site is not to get: another of the same second lies there, or it would be deleted next.
  void EcartePhotos();
  /// The newest that was not just refused; empty for none.
  QString ChoisitPhoto() const;
  /// The answer to a live image or a page that the server would not take.
  void RefuseEnvoi(const ResultatFtp& resultat);
  void RegardePhotos();
  void RegardeMemoires();
  void DisMemoires();
  QFileInfo LiveSurDisque() const;
  void RegardeLive();
  ContenuPage CreeContenu() const;

  void Signale(const AvisEchec& avis, bool desPhotos);
  void Reussit(bool desPhotos);
  QDateTime Maintenant() const;

  ContexteModule Contexte_;
  std::unique_ptr<OuvrierFtp> Ouvrier_;
  FilePhotos File_;
  PhotosPubliees Publiees_;
  PlaceSite Place_;
  MemoireSites Sites_;
  ContenuPage Page_;  // without its photos
  qint32 PhotosPage_ = 0;
  AccesFtp Voulu_;  // as the store has it now
  bool Incomplet_ = true;
  bool ReglagesRecus_ = false;
  AccesFtp Acces_;  // as it was at "Conne"

  Lien Lien_ = Lien::kArrete;
  Tache Tache_ = Tache::kAucune;
  QString MotArret_;         // why the link is down; empty before the first "Conne"
  bool Etabli_ = false;      // stood once since "Conne"
  bool Suppose_ = false;     // Etabli_ is a guess: the memory of the sites could not be read
  bool DejaPublie_ = false;  // and something was uploaded
  size_t Essai_ = 0;
  int Refus_ = 0;
  int Coupures_ = 0;

  bool LiveDemande_ = false;
  /// A state of the file on disk. Both, since some file systems keep the time to two seconds only.
  struct EtatFichier {
    qint64 Date = -1;
    qint64 Octets = -1;
    bool operator==(const EtatFichier&) const = default;
  };
  static EtatFichier DonneEtat(const QFileInfo& fichier);
  EtatFichier LiveVu_;      // at the last "Surve"
  qint64 LiveVuA_ = 0;      // when it was seen to have changed; 0 for what was there at the first look
  EtatFichier LiveEnvoye_;  // under way
  EtatFichier LivePublie_;  // last
  bool PageDemandee_ = false;
  bool PagePerimee_ = false;
  bool TourPhoto_ = false;
  QStringList Attente_;      // photos, oldest first
  QString PhotoEnvoyee_;     // under way
  QStringList Refusees_;     // photos that go to the back: the others are tried first
  QString PhotoCoupee_;      // the last one under which a connection broke
  int RefusDeSuite_ = 0;     // photos
  QStringList ANettoyer_;    // under way, or to be deleted next
  bool AvisPhotos_ = false;  // what was told last is about photos
  qint64 RetireesA_ = 0;     // when photos that waited were last deleted, milliseconds since 1970

  std::unique_ptr<Minuterie> TimerReprise_;
  std::unique_ptr<Minuterie> TimerSigne_;
  std::unique_ptr<Minuterie> TimerPhotos_;
  std::unique_ptr<Minuterie> TimerPausePhotos_;
  std::unique_ptr<Minuterie> TimerPage_;
  std::unique_ptr<Minuterie> TimerCalme_;
};

}  // namespace vaktor
