// Whether what leaves the machine arrives: mails that wait, a live page that nobody renews any more.
#pragma once

#include <memory>

#include "companions/link_state.h"
#include "companions/ports/companion_status.h"
#include "engine/live_interval.h"
#include "engine/ports/clock.h"
#include "engine/ports/timers.h"
#include "health/ports/health_report.h"
#include "settings/parameters.h"

namespace vaktor {

struct PortsEnvois {
  const Parametres& Reglages;
  const EtatLiaison& Liaison;
  const Horloge& Temps;
  FabriqueMinuteries& Minuteries;
  LecteurEtats& Lecteur;
  RapportSante& Sante;
};

/// Judges by time alone: what a companion said last goes on ageing when it dies, hangs, or its disk does not answer. A
/// file is news only when the companion that is registered now has written it; one that keeps no such file is never
/// judged. Nothing stands while mails, or the live page, are switched off.
/// Owner: app/. User-interface thread.
class SuiviEnvois {
 public:
  static constexpr qint32 kRegard = 15'000;               ///< milliseconds between two looks
  static constexpr qint64 kAttenteMax = 5 * 60 * 1000;    ///< that a mail may wait
  static constexpr int kIntervallesPage = 3;              ///< intervals that the live image may be old,
  static constexpr qint64 kMargePage = 30'000;            ///< and so many milliseconds
  static constexpr qint64 kIntervalleParDefaut = 10'000;  ///< for a text that is no number

  explicit SuiviEnvois(const PortsEnvois& ports);
  ~SuiviEnvois();
  SuiviEnvois(const SuiviEnvois&) = delete;
  SuiviEnvois& operator=(const SuiviEnvois&) = delete;

 private:
  void Regarde();
  void Recoit(const EtatsCompagnons& etats);
  void SuitInterrupteurs();
  void JugeCourriels();
  void JugePage();
  qint64 Maintenant();
  qint64 DonneAgeMax();

  PortsEnvois Ports_;
  IntervalleLive Intervalle_;
  quint32 DernierTic_;
  qint64 Ecoule_ = 0;  // milliseconds since the start: the counter of the clock may wrap
  // All in Ecoule_; what was before the start is negative.
  std::optional<qint64> AttendDepuis_;
  std::optional<qint64> LiveDepuis_;  // the switch is on, as far as it was seen
  std::optional<qint64> PublieA_;
  bool FtpParle_ = false;  // its file was read since the switch is on
  QString MotsMail_, MotsFtp_;
  std::unique_ptr<Minuterie> TimerEnvois_;
};

}  // namespace vaktor
