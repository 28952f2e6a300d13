// SPDX-License-Identifier: GPL-3.0-or-later
// The health of the watch: which conditions stand, since when, which of them count. Whoever knows reports, this room
// decides what counts, and those who show it follow.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <array>
#include <exception>
#include <memory>
#include <optional>

#include "engine/ports/clock.h"
#include "engine/ports/moment.h"
#include "engine/ports/timers.h"
#include "health/conditions.h"
#include "health/ports/health_report.h"

namespace vaktor {

struct ConditionEnCours {
  Condition Quoi;
  QDateTime Depuis;  ///< local time of the first report, as the clock stood then
  QString Detail;
  qint64 DepuisMs = 0;  ///< the same moment on the room's own count of milliseconds, which no clock change moves
};

/// Is told, from the room's tick and never from inside a report. User-interface thread; no call may wait. What one
/// throws costs it that call alone, and it is ticked again.
class ObservateurSante {
 public:
  virtual ~ObservateurSante() = default;
  /// It counts from now on. Of an event also while it stands: it has happened once more, and `condition` is that one.
  virtual void Commence(const ConditionEnCours& condition) { Q_UNUSED(condition) }
  /// One that counted has ended. `jusqua`: local time.
  virtual void Finit(const ConditionEnCours& condition, const QDateTime& jusqua) {
    Q_UNUSED(condition)
    Q_UNUSED(jusqua)
  }
  /// After the calls above, once for all of them, and when a detail has changed.
  virtual void Change() {}
  /// Once a second, after the calls above, while something stands or an observer wants it: true for more.
  /// `maintenantMs` is on the count of ConditionEnCours::DepuisMs.
  virtual bool Tic(qint64 maintenantMs) {
    Q_UNUSED(maintenantMs)
    return false;
  }
};

/// Owner: app/, one for the whole run. User-interface thread.
class SanteVeille : public RapportSante {
 public:
  static constexpr qint32 kTicMs = 1000;

  SanteVeille(const Horloge& temps, FabriqueMinuteries& minuteries);

  /// Reports are kept from the beginning; nothing is told before Lance and nothing after Arrete.
  void Observe(ObservateurSante& observateur) { Observateurs_.append(&observateur); }
  void Lance();
  void Arrete();

  /// A condition that counts and is taken back and reported again within one tick goes on.
  void Signale(Condition quoi, const QString& detail = {}) override;
  /// Without effect on an event, which stands until it was seen.
  void Leve(Condition quoi) override;

  /// What is reported now, counting or not.
  QList<ConditionEnCours> EnCours() const;
  /// What counts and has been told: the worst first, and of those that are as bad the one that began first.
  QList<ConditionEnCours> Comptees() const;
  /// The user has looked at the list: events go.
  void OublieEvenements();

 private:
  struct Etat {
    ConditionEnCours Condition_;
    bool Dite = false;                     // counts, observers know
    bool Levee = false;                    // taken back, the tick has not yet told
    std::optional<QDateTime> Encore = {};  // an event that observers know has happened once more, and when
  };
  using Case = std::optional<Etat>;

  void AvanceTemps();
  void Reveille();
  void Tic();
  bool Regarde(Case& cas);
  template <typename Appel>
  void Dit(const Appel& appel);
  void RelanceEchec();
  QDateTime Maintenant() const { return LitMoment(Temps_); }

  const Horloge& Temps_;
  std::unique_ptr<Minuterie> Minuterie_;
  std::array<Case, kNombreConditions> Etats_;
  QList<ObservateurSante*> Observateurs_;
  qint64 MaintenantMs_ = 0;  // ms that have passed while the timer ran; stands still while all is well
  qint32 DernierTic_ = 0;
  bool Lancee_ = false;
  bool Change_ = false;       // a detail, since the last tick
  std::exception_ptr Echec_;  // the first that an observer has thrown while all of them are told
};

}  // namespace vaktor
