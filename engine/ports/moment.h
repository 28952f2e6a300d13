// SPDX-License-Identifier: GPL-3.0-or-later
// Day and time of day of one moment.
#pragma once

#include <QDateTime>

#include "engine/ports/clock.h"

namespace vaktor {

/// Local time. The clock is asked for both one after the other, and midnight may lie in between: the moment would be a
/// whole day off.
inline QDateTime LitMoment(const Horloge& temps) {
  const QDate date = temps.DonneDate();
  const QTime heure = temps.DonneHeure();
  const QDate apres = temps.DonneDate();
  return date == apres ? QDateTime(date, heure) : QDateTime(apres, temps.DonneHeure());
}

}  // namespace vaktor
