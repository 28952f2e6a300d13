// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/system_clock.h"

namespace vaktor {

QString HorlogeSysteme::DonneHeureTexte() const { return TexteHeure(DonneHeure(), QLocale::system()); }

QString HorlogeSysteme::TexteHeure(const QTime& heure, const QLocale& langue) {
  const QString format = RetireFuseau(langue.timeFormat(QLocale::LongFormat));
  return langue.toString(heure, format.contains(u':') ? format : QStringLiteral("HH:mm:ss"));
}

QString HorlogeSysteme::RetireFuseau(const QString& format) {
  QString reste;
  bool cite = false;  // inside '...', where a "t" is a letter of the text and not the zone
  for (const QChar c : format) {
    if (c == u'\'') cite = !cite;
    if (cite || c != u't') reste += c;
  }
  // Some locales put the zone in brackets.
  reste.replace(QStringLiteral("()"), QString()).replace(QStringLiteral("[]"), QString());
  return reste.simplified();
}

}  // namespace vaktor
