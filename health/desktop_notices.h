// SPDX-License-Identifier: GPL-3.0-or-later
// What is told on the desktop: one notification when a condition begins, one when the last has ended.
#pragma once

#include <QHash>
#include <QSet>
#include <optional>

#include "health/ports/desktop_notifier.h"
#include "health/watch_health.h"
#include "settings/parameters.h"

namespace vaktor {

/// A network that fails takes the camera, the mails and the page with it within seconds: what begins within kRegroupeMs
/// of a notification waits for the next one, and is told in it. The end is told when nothing has begun again for as
/// long, so that what comes and goes is no storm. A condition that ends while another one stands, and begins again, is
/// told again if it was away for kRetourMs. Events do not end. Owner: app/. User-interface thread.
class AvisBureau : public ObservateurSante {
 public:
  static constexpr qint64 kRegroupeMs = 5000;
  static constexpr qint64 kRetourMs = 60'000;

  AvisBureau(NotifieurBureau& bureau, const Parametres& reglages) : Bureau_(bureau), Reglages_(reglages) {}

  void Commence(const ConditionEnCours& condition) override;
  void Finit(const ConditionEnCours& condition, const QDateTime& jusqua) override;
  bool Tic(qint64 maintenantMs) override;

 private:
  void DitDebuts(qint64 maintenantMs);
  void DitFin();

  NotifieurBureau& Bureau_;
  const Parametres& Reglages_;
  QList<ConditionEnCours> ADire_;    // begun, also those that have ended since
  QSet<Condition> EnCours_;          // counting now, without events
  QSet<Condition> Dites_;            // told, and their end not yet
  QHash<Condition, qint64> Finies_;  // when each ended last, of those that were told
  qint64 MaintenantMs_ = 0;          // of the last tick
  std::optional<qint64> Derniere_;   // the last notification of a beginning
  std::optional<qint64> Calme_;      // since when nothing stands
};

}  // namespace vaktor
