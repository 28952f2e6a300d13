// SPDX-License-Identifier: GPL-3.0-or-later
// Once a day a short mail says that the watch still watches, or what keeps it from that: whoever hears nothing for
// weeks cannot tell a quiet house from a machine that stands still.
#pragma once

#include <QDateTime>
#include <QImage>
#include <QList>
#include <functional>
#include <memory>
#include <optional>

#include "engine/ports/clock.h"
#include "engine/ports/timers.h"
#include "health/ports/mail_drop.h"
#include "health/watch_health.h"
#include "settings/parameters.h"
#include "settings/ports/files.h"
#include "settings/ports/module_commands.h"

namespace vaktor {

/// All of it outlives the rule.
struct PortsSigneDeVie {
  DepotCourriels& Depot;
  CommandesModules& Modules;
  const Parametres& Reglages;
  const Horloge& Temps;
  FabriqueMinuteries& Minuteries;
  const Fichiers& Disque;
  std::function<bool()> Armee;                          ///< AlarmeArmee
  std::function<QImage()> Image;                        ///< the last picture, null without one
  std::function<QList<ConditionEnCours>()> Conditions;  ///< SanteVeille::Comptees
};

/// In the hour of Parametres::HeureSigneDeVie, once a day, also where the program is started anew in that hour, if
/// mails are switched on and the alarm is armed then. A mail that could not be laid down is tried again in that hour.
/// An hour that does not come, since summer time begins in it, the clock was set over it or the machine slept, is made
/// up for: it is then the hour that begins where the clock goes on.
/// It says that the watch watches only where nothing but notices stand; what stands is told in it. Owner: app/.
/// User-interface thread.
class SigneDeVie {
 public:
  static constexpr qint32 kRegardMs = 10'000;

  explicit SigneDeVie(PortsSigneDeVie ports);

  void Lance() { Timer_->Active(); }
  void Arrete() { Timer_->Desactive(); }
  /// An intrusion has begun.
  void NoteAlarme() noexcept { ++Alarmes_; }
  /// A photo of the user's was written.
  void NotePhoto() noexcept { ++Photos_; }

 private:
  void Regarde();
  void SuitHeure(const QDateTime& maintenant);
  bool EstHeure(const QDateTime& maintenant) const;
  /// The day of the last one, asked of the disk until it has answered once.
  bool SaitDernierJour();
  void Envoie();
  CourrielVeille Compose(const QList<ConditionEnCours>& conditions, const QImage& image) const;
  QString DitComptes(std::optional<qint64> libre, Langue langue) const;

  PortsSigneDeVie Ports_;
  std::unique_ptr<Minuterie> Timer_;
  std::optional<QDateTime> ArmeeDepuis_;  // as the clock stood then, found by the look behind it
  std::optional<QDateTime> Avant_;        // the look before, as the clock stood then
  std::optional<QDateTime> Saut_;         // the look that found the hour passed over
  QDate Dit_;                             // the day of the last one
  bool Su_ = false;                       // what an earlier run has sent is known
  bool DitIci_ = false;                   // by this run: the counters know nothing of what was before it
  qint64 Alarmes_ = 0;                    // since the last one
  qint64 Photos_ = 0;
  std::shared_ptr<bool> Vie_ = std::make_shared<bool>(true);  // answers may come after this object
};

}  // namespace vaktor
