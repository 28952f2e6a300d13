// SPDX-License-Identifier: GPL-3.0-or-later
// What each condition of the watch means: how bad it is, how long it must last before it counts, and the words for
// those who look after the shop. One table; nobody else finds words for a condition.
#pragma once

#include <QDateTime>
#include <QString>

#include "health/ports/health_report.h"
#include "texts/language.h"

namespace vaktor {

/// How bad a condition is. The order is that of the telling: the worst first.
enum class Gravite {
  kAveugle,   ///< blind: no movement is seen and no alarm can come
  kBoiteuse,  ///< lame: the watch sees, but something that an alarm sets off does not happen
  kAvis       ///< notice: nothing is lost yet, or it is over
};

Gravite DonneGravite(Condition quoi);
/// How long it must be reported without a gap before it counts, ms. 0: it counts as soon as it is reported, and is told
/// even if it ends at once.
qint32 DonneDuree(Condition quoi);
/// It happened and is over: it stands until the user has seen it in the list, and nobody can take it back.
bool EstEvenement(Condition quoi);
/// A stable English word for programs ("signal-lost").
QString MotCondition(Condition quoi);

/// What is wrong, one sentence, with `detail` behind it where there is one.
QString PhraseQuoi(Condition quoi, const QString& detail, Langue langue);
/// What to do.
QString PhraseFaire(Condition quoi, Langue langue);
/// How bad it is, a few words: "Vaktor sees nothing".
QString PhraseGravite(Gravite gravite, Langue langue);
/// A day and a time for a person to read: "2 January 2020, 09:05:03".
QString DitMoment(const QDateTime& moment, Langue langue);

}  // namespace vaktor
