#include "platform/base/system_clock.h"

#include <QLocale>

namespace vaktor {

QString HorlogeSysteme::DonneHeureTexte() const {
  const QLocale langue = QLocale::system();
  return langue.toString(DonneHeure(), RetireFuseau(langue.timeFormat(QLocale::LongFormat)));
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
