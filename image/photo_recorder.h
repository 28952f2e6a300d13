// SPDX-License-Identifier: GPL-3.0-or-later
// The photo recorder: one alarm frame becomes up to two JPEG files.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "base/program_folders.h"
#include "engine/frame_surface.h"
#include "engine/ports/clock.h"
#include "health/ports/health_report.h"
#include "image/jpeg_writer.h"
#include "image/photo_failure.h"
#include "image/ports/flush_losses.h"
#include "settings/parameters.h"
#include "settings/ports/files.h"

namespace vaktor {

struct PortsPhotos {
  const Parametres& Reglages;
  const DossiersProgramme& Dossiers;
  const SurfaceImage& Surface;
  const Horloge& Temps;
  EcrivainJpeg& Ecrivain;
  const Fichiers& Disque;
  std::function<bool()> LiveActif;  ///< read from its owner at each call
  RapportSante& Sante;
  /// Asked before each copy for the companions, which counts as written when the answer is yes; empty: always yes.
  std::function<bool()> CopieBienvenue = {};
  /// Is told of each user's copy that was written: its path, as it was written, with "/" between the folders. Must not
  /// throw; may be empty.
  std::function<void(const QString& fichier)> SurPhoto = {};
  /// The same of each copy for the companions.
  std::function<void(const QString& fichier)> SurCopie = {};
};

/// Owner: app/. User-interface thread.
class EnregistreurPhotos {
 public:
  explicit EnregistreurPhotos(const PortsPhotos& ports);

  /// DateJour takes today's date, once, at the load of Form1; nothing updates it afterwards.
  void FixeDateJour();
  const QString& DateJour() const { return DateJour_; }
  qint32 CompteurPhotos() const { return CompteurPhotos_; }

  /// One photo of the current frame, of an armed system: the user's copy, the copy for the companions, or both. Throws
  /// what the writer throws; the number used stays used. Once photos have failed for a second they are tried once a
  /// second, and their failure does not come out of here any more until one has succeeded.
  void EnregistrePhoto();

  /// Conditions that end, or begin, without a photo being taken: photos are switched off, another folder is chosen,
  /// the limit is raised, nobody watches any more. To be called now and then.
  void RevoitConditions(bool alarmeArmee);
  /// Photos that were told as written did not reach the disk. Told for kRappelPerte: nothing mends it, and what comes
  /// after it may be whole.
  void NotePerte(const PerteVidage& perte);
  /// Folders (stored form) that have failed, and that no photo has tried for a while.
  QStringList DossiersAEssayer() const;
  /// One of them takes files again. Without effect where a photo has failed since.
  void OublieEssayee(const QString& dossier);

  static constexpr quint32 kRappelPerte = 60'000;  ///< milliseconds

  /// True when the free-space warning is due: fewer than 500,000,000 bytes are free. False with no folder chosen. A
  /// query that fails keeps the result of the one before (0 bytes at the start).
  bool VerifieEspaceDisque();

 private:
  struct Perte {
    qint32 Tic = 0;
    QString Raison;
  };

  bool VeutPhoto() const;
  QString DossierLive() const;
  /// Tells `temoin`, where there is one, when it is written.
  void EcritCopie(PannePhotos& panne, const QString& dossier, const QString& nom, quint8 qualite,
                  const std::function<void(const QString&)>& temoin);
  QString EcritNouvelle(const QString& fichier, quint8 qualite);
  void RevoitPannes(bool alarmeArmee);
  void SignalePannes();

  PortsPhotos Ports_;
  QString DateJour_;
  qint32 CompteurPhotos_ = 0;
  PannePhotos PannePhoto_;            // of the user's copies
  PannePhotos PanneLive_;             // of the copies for the companions
  std::optional<Perte> Perte_;        // the last, while it is told
  std::optional<qint32> LimiteDite_;  // the limit that is told as reached
  qint64 OctetsLibres_ = 0;
};

}  // namespace vaktor
