// SPDX-License-Identifier: GPL-3.0-or-later
// Looks after the place of the photos while nobody takes one: room on the disk, and conditions that end by themselves.
#pragma once

#include <functional>
#include <memory>

#include "engine/ports/timers.h"
#include "health/ports/health_report.h"
#include "image/photo_recorder.h"
#include "image/ports/flush_losses.h"
#include "image/ports/space_query.h"
#include "image/ports/write_trial.h"
#include "settings/parameters.h"

namespace vaktor {

struct PortsVeillePhotos {
  const Parametres& Reglages;
  EnregistreurPhotos& Photos;
  FabriqueMinuteries& Minuteries;
  SondeEspace& Sonde;
  EssaiEcriture& Essai;
  PertesVidage& Pertes;
  RapportSante& Sante;
  std::function<bool()> AlarmeArmee;  ///< read from its owner at each tick
};

/// Owner: app/. User-interface thread. It has a timer of its own, "TimerPhotos", which runs from the making on, once a
/// second, and of which nothing waits: only an armed alarm makes it ask a disk anything. What was lost of the photos of
/// an alarm is told at any time.
class VeillePhotos {
 public:
  /// Seconds between two questions for the room that is left, while armed and photos are on; the first comes at once.
  static constexpr int kPeriodeEspace = 60;
  /// Seconds between two trials of a folder that has failed, while armed.
  static constexpr int kPeriodeEssai = 60;

  explicit VeillePhotos(const PortsVeillePhotos& ports);
  ~VeillePhotos();
  VeillePhotos(const VeillePhotos&) = delete;
  VeillePhotos& operator=(const VeillePhotos&) = delete;

 private:
  void PasseUneSeconde();
  void DitPertes();
  void EssaieDossiers();
  void DemandeEspace();
  void RecoitEspace(const QString& dossier, std::optional<qint64> libres);
  void OublieEspace();

  PortsVeillePhotos Ports_;
  std::unique_ptr<Minuterie> Minuterie_;
  int SecondesAvantDemande_ = 0;
  int SecondesAvantEssai_ = 0;
  QString Dossier_;  // that was asked for last
  bool Demande_ = false;
};

}  // namespace vaktor
