// SPDX-License-Identifier: GPL-3.0-or-later
// The machine stays awake while the camera runs; where it slept all the same, or its clock was set, the gap is told.
#pragma once

#include <QStringList>
#include <functional>
#include <memory>

#include "engine/ports/timers.h"
#include "health/ports/awake_machine.h"
#include "health/ports/health_report.h"

namespace vaktor {

struct PortsEveil {
  MachineEveillee& Machine;
  FabriqueMinuteries& Minuteries;
  RapportSante& Sante;
  std::function<bool()> CameraActive;
  std::function<bool()> AlarmeArmee;
};

/// Looks once a second. Asks when the camera runs and gives back when it does not. A request that was refused is made
/// again each minute, as is one whose holder has gone; that is a condition while the camera runs. Where nobody is there
/// to be asked (a container, a desktop without a login manager) hardly anybody puts the machine to sleep either: only
/// who has armed the alarm and left needs to know, so that it is told while armed.
/// Owner: app/. User-interface thread.
class GardeEveil {
 public:
  static constexpr qint32 kTicMs = 1000;
  static constexpr qint64 kRepriseMs = 60'000;
  static constexpr qint64 kSommeilMs = 2000;   ///< sleep below it is the rounding of two clocks
  static constexpr qint64 kRetardMs = 10'000;  ///< a tick that late: the process stood still, as in a paused machine
  static constexpr qint64 kSautMs = 60'000;    ///< of the clock; less is the correction of a time server
  static constexpr qsizetype kTrousMax = 3;    ///< told of one run of the camera, the last ones

  explicit GardeEveil(const PortsEveil& ports);

  /// End of the program: gives back and looks no more.
  void Arrete();

  /// "02:10 - 06:40", with seconds where both would else be the same, with the days where these differ. Local time.
  static QString DitTrou(qint64 deMs, qint64 aMs);

 private:
  void Tic();
  void ChercheTrou(const InstantsMachine& maintenant);
  void NoteTrou(qint64 deMs, qint64 aMs);
  void SuitCamera(bool camera, qint64 eveilleMs);
  void Demande(qint64 eveilleMs);
  void Rend();
  void MontreRefus(bool camera);

  PortsEveil Ports_;
  std::unique_ptr<Minuterie> Minuterie_;
  InstantsMachine Derniers_;  // of the last tick
  bool CameraAlors_ = false;  // at the last tick the camera ran
  bool Demandee_ = false;
  qint64 DerniereDemandeMs_ = 0;                    // awake
  ReponseEveil Reponse_ = ReponseEveil::kAccordee;  // the last one; until the first, nothing is wrong
  QString Mots_;
  QStringList Trous_;
};

}  // namespace vaktor
