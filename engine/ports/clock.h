// SPDX-License-Identifier: GPL-3.0-or-later
// Port: time. Rules never ask the system; tests hand in a clock that they move by hand.
#pragma once

#include <QDate>
#include <QString>
#include <QTime>

namespace vaktor {

class Horloge {
 public:
  virtual ~Horloge() = default;
  /// Milliseconds as a signed 32-bit counter. The real one starts at 0 with the program, turns negative after 2^31 ms
  /// (24.8 days) and goes on from there, so that differences are right modulo 2^32. Who remembers its values and takes
  /// checked differences brings them along before that day (engine/analysis_clock.h).
  virtual qint32 CompteTics() const = 0;
  virtual QDate DonneDate() const = 0;
  /// Time of day, local.
  virtual QTime DonneHeure() const = 0;
  /// The time of day as text in the system's own long format ("9:05:03", "09:05:03", "9:05:03 AM").
  virtual QString DonneHeureTexte() const = 0;
};

}  // namespace vaktor
