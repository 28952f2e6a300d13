// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the inboxes in the store are still those of this program. Another copy that the same user starts writes its
// own there: new companions then register with it, and this one has lost its way to them.
#pragma once

#include <QList>
#include <functional>
#include <optional>

#include "companions/ports/message_channel.h"
#include "companions/ports/published_inboxes.h"
#include "health/ports/health_report.h"

namespace vaktor {

struct PortsGarde {
  LecteurCasiers& Lecteur;
  CanalMessages& Canal;
  RapportSante& Sante;
  std::function<PoigneesPubliees()> Siennes;  ///< the handles of this program's own inboxes
  std::function<void()> Publie;               ///< writes these into the store again; throws Echec
};

/// Reports kCasiersPerdus, and kCasiersNonEcrits where our own cannot be written into the store. Nothing is done
/// against a copy that runs; handles that nobody answers to (a copy that has ended, a file that somebody has deleted or
/// put back) are replaced by our own. Owner: app/. User-interface thread.
class GardeCasiers {
 public:
  /// Seconds after which a look without an answer is given up, and the next one may begin: its disk may be silent for
  /// good, and an answer may be lost for want of memory.
  static constexpr int kAbandon = 60;

  explicit GardeCasiers(const PortsGarde& ports) : Ports_(ports) {}
  ~GardeCasiers();
  GardeCasiers(const GardeCasiers&) = delete;
  GardeCasiers& operator=(const GardeCasiers&) = delete;

  /// Looks at the store, after this call and not before, and calls `suite` from the event loop: whether a companion
  /// that is started now would find this program. While the disk of the store does not answer it is not called; whoever
  /// waits for a look that was given up waits for the next one.
  void Regarde(std::function<void(bool siennes)> suite);
  bool EstEnCours() const { return EnCours_; }  ///< a look is under way
  /// A second has gone by.
  void Tic();
  /// The program ends: nothing is written and nobody is told any more.
  void Arrete();

 private:
  void Recoit(int tour, const std::optional<PoigneesPubliees>& lues);
  bool Juge(const PoigneesPubliees& lues);
  bool Republie();

  void Commence();

  PortsGarde Ports_;
  QList<std::function<void(bool)>> Suites_;     // of those who wait for the look that is under way
  QList<std::function<void(bool)>> Suivantes_;  // of those who have come since: it may have been too early for them
  bool EnCours_ = false;
  int Tour_ = 0;         // of the look that is under way, or of the last one
  int Age_ = 0;          // seconds of it
  bool Siennes_ = true;  // as the last look told that told anything
};

}  // namespace vaktor
