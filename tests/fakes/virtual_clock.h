// SPDX-License-Identifier: GPL-3.0-or-later
// A clock that stands still until a test moves it.
#pragma once

#include "engine/ports/clock.h"

namespace vaktor::faux {

class HorlogeVirtuelle : public Horloge {
 public:
  qint32 CompteTics() const override { return static_cast<qint32>(static_cast<quint32>(Millisecondes)); }
  QDate DonneDate() const override { return Date.addDays((Debut.msecsSinceStartOfDay() + Millisecondes) / kJourMs); }
  QTime DonneHeure() const override {
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>((Debut.msecsSinceStartOfDay() + Millisecondes) % kJourMs));
  }
  QString DonneHeureTexte() const override { return DonneHeure().toString(QStringLiteral("hh:mm:ss")); }

  qint64 Millisecondes = 0;  ///< since the start of the program; the counter wraps as a signed 32-bit number
  QDate Date{2020, 1, 2};    ///< day and time of the start
  QTime Debut{9, 5, 3};

 private:
  static constexpr qint64 kJourMs = 86'400'000;
};

}  // namespace vaktor::faux
