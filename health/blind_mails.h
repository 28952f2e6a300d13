// SPDX-License-Identifier: GPL-3.0-or-later
// Who is told by mail that the watch is blind, and when: whoever armed it and left.
#pragma once

#include <QImage>
#include <QList>
#include <QMap>
#include <functional>
#include <memory>
#include <optional>

#include "health/ports/mail_drop.h"
#include "health/watch_health.h"
#include "settings/parameters.h"
#include "settings/ports/module_commands.h"

namespace vaktor {

/// All of it outlives the rule.
struct PortsCourrielsAveugle {
  DepotCourriels& Depot;
  CommandesModules& Modules;
  const Parametres& Reglages;
  std::function<bool()> Armee;    ///< AlarmeArmee
  std::function<QImage()> Image;  ///< the last picture, null without one
};

/// A condition that has made the watch blind for kAveugleMs sends one mail if mails are switched on and the alarm is
/// armed then, or as soon as both are so; when it ends another one, if the first was sent and mails are still switched
/// on. Of each condition no more than one such pair begins in kPauseMs. A mail that could not be laid down is tried
/// again. Owner: app/. User-interface thread.
class CourrielsAveugle : public ObservateurSante {
 public:
  static constexpr qint64 kAveugleMs = 60'000;
  static constexpr qint64 kPauseMs = 3'600'000;
  static constexpr qint64 kReessaiMs = 30'000;

  explicit CourrielsAveugle(PortsCourrielsAveugle ports) : Ports_(std::move(ports)) {}

  void Commence(const ConditionEnCours& condition) override;
  void Finit(const ConditionEnCours& condition, const QDateTime& jusqua) override;
  bool Tic(qint64 maintenantMs) override;

 private:
  struct Suivi {
    std::optional<ConditionEnCours> EnCours;  // stands now
    bool DebutDit = false;                    // of the one that stands now
    std::optional<qint64> DernierDebut;       // within the last hour
  };
  struct Courrier {
    CourrielVeille Courriel;
    QImage Image;
  };

  struct Fin {
    ConditionEnCours Finie;
    QDateTime Jusqua;
  };

  void DitDebut(Suivi& suivi, qint64 maintenantMs);
  void DitFins();
  bool EstAveugle() const;
  void Envoie(const Courrier& courrier);
  void ReessaieRefuses(qint64 maintenantMs);

  PortsCourrielsAveugle Ports_;
  QMap<Condition, Suivi> Suivis_;
  QList<Fin> Fins_;                                           // of beginnings that were told, since the last tick
  QList<Courrier> Refuses_;                                   // could not be laid down
  std::optional<qint64> Reessai_;                             // when they are tried again
  qint64 MaintenantMs_ = 0;                                   // of the last tick
  qint32 EnRoute_ = 0;                                        // laid down, no answer yet
  std::shared_ptr<bool> Vie_ = std::make_shared<bool>(true);  // answers may come after this object
};

}  // namespace vaktor
