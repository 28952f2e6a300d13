// SPDX-License-Identifier: GPL-3.0-or-later
// The clock of the program: a monotonic counter from its making, and the system's date and time of day.
#pragma once

#include <QElapsedTimer>
#include <QLocale>

#include "engine/ports/clock.h"

namespace vaktor {

/// Made once, first thing in the program, so that the counter starts with it. Any thread may read it.
class HorlogeSysteme : public Horloge {
 public:
  HorlogeSysteme() { Depart_.start(); }

  /// Not moved by changes of the system's time.
  qint32 CompteTics() const override { return TicsDepuis(Depart_.elapsed()); }
  QDate DonneDate() const override { return QDate::currentDate(); }
  QTime DonneHeure() const override { return QTime::currentTime(); }
  QString DonneHeureTexte() const override;

  /// The counter's value so many milliseconds after the start: the low 32 bits as a signed number.
  static qint32 TicsDepuis(qint64 millisecondes) { return static_cast<qint32>(static_cast<quint32>(millisecondes)); }

  /// A long time format of a locale (the letters of QLocale::timeFormat) without the name of the time zone, which Qt
  /// counts as part of it and a clock beside a picture does not show.
  static QString RetireFuseau(const QString& format);
  /// The time in the long format of a locale, without its zone. The stamp of the live image is cut out of it by its
  /// colons: a locale that puts something else between its numbers ("09.05.03" in Finland, "9 h 05" in Canada) gives
  /// "HH:mm:ss".
  static QString TexteHeure(const QTime& heure, const QLocale& langue);

 private:
  QElapsedTimer Depart_;
};

}  // namespace vaktor
