// SPDX-License-Identifier: GPL-3.0-or-later
// The program of the user's own is told what is wrong with the watch, and when it is over.
#pragma once

#include <QMap>
#include <optional>

#include "health/ports/user_program.h"
#include "health/watch_health.h"
#include "settings/parameters.h"

namespace vaktor {

/// Started as "--etat begin GRAVITY WORD SENTENCE" for what begins to count, "--etat end GRAVITY WORD SENTENCE" when it
/// ends: GRAVITY is blind, lame or notice, WORD the condition's stable one (MotCondition), SENTENCE what is wrong in
/// the user's language. Whether armed or not, since the program can tell for itself what it makes of it. Of each
/// condition one beginning a minute at most, so that what comes and goes is no storm; what stands then is told as soon
/// as the minute is over. Owner: app/. User-interface thread.
class AnnonceEtats : public ObservateurSante {
 public:
  static constexpr qint64 kPauseMs = 60'000;

  AnnonceEtats(ProgrammePersonnel& programme, const Parametres& reglages)
      : Programme_(programme), Reglages_(reglages) {}

  void Commence(const ConditionEnCours& condition) override;
  void Finit(const ConditionEnCours& condition, const QDateTime& jusqua) override;
  bool Tic(qint64 maintenantMs) override;

 private:
  struct Suivi {
    std::optional<ConditionEnCours> EnCours;  // stands, or has happened and was not told yet
    bool DebutDit = false;                    // of the one that stands
    std::optional<ConditionEnCours> Finie;    // its end is still to be told
    std::optional<qint64> DernierDebut;       // within the last minute
  };

  void DitFin(Suivi& suivi);
  void DitDebut(Suivi& suivi, qint64 maintenantMs);
  void Lance(const char* quoi, const ConditionEnCours& condition);

  ProgrammePersonnel& Programme_;
  const Parametres& Reglages_;
  QMap<Condition, Suivi> Suivis_;
};

}  // namespace vaktor
