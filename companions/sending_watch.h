// SPDX-License-Identifier: GPL-3.0-or-later
// Whether what an alarm sets off arrives: mails and pushes that wait, a live page that nobody renews any more, a sound
// that nobody hears.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

#include "companions/contract/command_words.h"
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
  /// This companion is there and takes its messages: what it writes can be expected. Empty: it always is.
  std::function<bool(Compagnon)> Present = {};
  /// A server has taken a mail since the look before, or several. Empty: nobody wants to know.
  std::function<void()> SurAccepte = {};
};

/// Judges by time alone: what a companion said last goes on ageing when it dies, hangs, or its disk does not answer, by
/// the counter and from the first reading of that text on, so that a clock that is set makes nothing young again. A
/// file is news only when the companion that is registered now has written it, and not the same text of life again; of
/// one that gives no news for kSansNouvelles nobody knows whether its mails and images arrive, which is a condition of
/// its own. Nothing stands while mails, the live page or the sound are switched off, but that an error has switched off
/// a page that ran, until somebody uses the switch.
/// Owner: app/. User-interface thread.
class SuiviEnvois {
 public:
  static constexpr qint32 kRegard = 15'000;                     ///< milliseconds between two looks
  static constexpr qint64 kAttenteMax = qint64{5} * 60 * 1000;  ///< that a mail or a push may wait
  static constexpr int kIntervallesPage = 3;                    ///< intervals that the live image may be old,
  static constexpr qint64 kMargePage = 30'000;                  ///< and so many milliseconds
  static constexpr qint64 kSansNouvelles = 180'000;       ///< three times what our own companions take to say something
  static constexpr qint64 kIntervalleParDefaut = 10'000;  ///< for a text that is no number

  explicit SuiviEnvois(const PortsEnvois& ports);
  ~SuiviEnvois();
  SuiviEnvois(const SuiviEnvois&) = delete;
  SuiviEnvois& operator=(const SuiviEnvois&) = delete;

 private:
  void Regarde();
  void Recoit(const EtatsCompagnons& etats);
  void SuitInterrupteurs();
  void SuitAccepte(const QString& accepte);
  /// A moment that a companion tells, as Ecoule_; what was before the start is negative.
  struct Moment {
    std::optional<qint64> A;
    QString Dit;  // the text it was read from
  };
  void Suit(Moment& moment, const std::optional<qint64>& age, const QString& dit);
  void JugeCourriels();
  void JugePush();
  void JugePage();
  void JugeCoupure();
  void JugeNouvelles();
  bool EcouteSon() const;
  void JugeSon();
  /// News of one of them, which is being waited for or not.
  struct Nouvelles {
    std::optional<qint64> Depuis;  // of the last, or since they are waited for; as Ecoule_
    QString Battement;
  };
  void SuitNouvelles(Compagnon qui, bool attendues);
  bool EstNouvelle(Compagnon qui, const EtatCompagnon& etat);
  Nouvelles& De(Compagnon qui) { return qui == Compagnon::kFtp ? NouvellesFtp_ : NouvellesMail_; }
  qint64 Maintenant();
  qint64 DonneAgeMax();

  PortsEnvois Ports_;
  QDateTime Debut_;  // of this run
  IntervalleLive Intervalle_;
  quint32 DernierTic_;
  qint64 Ecoule_ = 0;  // milliseconds since the start: the counter of the clock may wrap
  Moment AttendDepuis_, AttendPushDepuis_, PublieA_;
  std::optional<qint64> LiveDepuis_;  // the switch is on, as far as it was seen; in Ecoule_
  bool FtpParle_ = false;             // its file was read since the switch is on
  QString MotsMail_, MotsFtp_, MotsPush_;
  std::optional<QString> SonMuet_;  // the last sound was not heard, and why
  std::optional<QString> Accepte_;  // as last read; nothing before the first reading
  Nouvelles NouvellesMail_, NouvellesFtp_;
  std::unique_ptr<Minuterie> TimerEnvois_;
};

}  // namespace vaktor
