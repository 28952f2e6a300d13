// SPDX-License-Identifier: GPL-3.0-or-later
// One day of the chronicle: from midnight to midnight, as the clock of this machine has it.
#pragma once

#include <QDate>
#include <QList>
#include <optional>

#include "journal/chronicle.h"

namespace vaktor {

struct JourVu {
  QDate Jour;
  QDateTime De, A;              ///< its midnights: 23 or 25 hours apart where the clock is changed
  QList<qsizetype> Intrusions;  ///< in Chronique::Intrusions: those that began that day, in their order
  qint64 VeilleMs = 0;          ///< armed and seeing
};
JourVu ComposeJour(const Chronique& chronique, const QDate& jour);

/// Intrusions of a day; cheap.
qsizetype CompteIntrusions(const Chronique& chronique, const QDate& jour);

/// The day that is shown first: today if the journal knows anything of it, else the newest of which it does.
QDate ChoisitJour(const Chronique& chronique, const QDate& aujourdhui);

/// The part of a day that a strip shows, ms from its midnight on.
struct Fenetre {
  qint64 De = 0;
  qint64 A = 0;
  bool operator==(const Fenetre&) const = default;
};
inline constexpr qint64 kFenetreMin = 600'000;
/// Closer by `facteur` (above 1) or back (below), around a moment that stays where it is; never beyond the day nor
/// closer than kFenetreMin.
Fenetre Zoome(const Fenetre& fenetre, double facteur, qint64 autour, qint64 jour);
Fenetre Deplace(const Fenetre& fenetre, qint64 de, qint64 jour);

}  // namespace vaktor
