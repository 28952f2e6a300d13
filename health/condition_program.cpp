// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/condition_program.h"

#include <utility>

namespace vaktor {

namespace {

QString MotGravite(Gravite gravite) {
  switch (gravite) {
    case Gravite::kAveugle:
      return QStringLiteral("blind");
    case Gravite::kBoiteuse:
      return QStringLiteral("lame");
    case Gravite::kAvis:
      break;
  }
  return QStringLiteral("notice");
}

}  // namespace

void AnnonceEtats::Commence(const ConditionEnCours& condition) {
  Suivi& suivi = Suivis_[condition.Quoi];
  suivi.EnCours = condition;
  suivi.DebutDit = false;
}

// The end of an event is that somebody has looked at the list: no news.
void AnnonceEtats::Finit(const ConditionEnCours& condition, const QDateTime&) {
  Suivi& suivi = Suivis_[condition.Quoi];
  suivi.EnCours.reset();
  if (std::exchange(suivi.DebutDit, false) && !EstEvenement(condition.Quoi)) suivi.Finie = condition;
}

bool AnnonceEtats::Tic(qint64 maintenantMs) {
  bool encore = false;
  for (Suivi& suivi : Suivis_) {
    if (suivi.DernierDebut && maintenantMs - *suivi.DernierDebut >= kPauseMs) suivi.DernierDebut.reset();
    DitFin(suivi);
    DitDebut(suivi, maintenantMs);
    encore = encore || suivi.DernierDebut;
  }
  return encore;
}

// Here and below noted as told behind what may throw: then the next tick tries again.
void AnnonceEtats::DitFin(Suivi& suivi) {
  if (!suivi.Finie) return;
  Lance("end", *suivi.Finie);
  suivi.Finie.reset();
}

void AnnonceEtats::DitDebut(Suivi& suivi, qint64 maintenantMs) {
  if (!suivi.EnCours || suivi.DebutDit || suivi.DernierDebut) return;
  Lance("begin", *suivi.EnCours);
  suivi.DebutDit = true;
  suivi.DernierDebut = maintenantMs;
}

void AnnonceEtats::Lance(const char* quoi, const ConditionEnCours& condition) {
  Programme_.Lance({QStringLiteral("--etat"), QLatin1String(quoi), MotGravite(DonneGravite(condition.Quoi)),
                    MotCondition(condition.Quoi),
                    PhraseQuoi(condition.Quoi, condition.Detail, LangueParlee(Reglages_.LangueCourante))});
}

}  // namespace vaktor
