// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/mail_addresses.h"

#include <algorithm>

namespace vaktor {
namespace {

constexpr qsizetype kAdresseMax = 320;  // RFC 5321: 64 and 255, with the sign between

bool EstControle(QChar c) {
  const char16_t code = c.unicode();
  return code < 0x20 || (code >= 0x7f && code < 0xa0) || code == 0x2028 || code == 0x2029;
}

// Within quotes and behind "<" the signs that part addresses belong to the one in which they stand.
QStringList Separe(const QString& champ) {
  QStringList morceaux(QString{});
  bool cite = false;
  bool entre = false;
  for (qsizetype i = 0; i < champ.size(); ++i) {
    const QChar c = champ.at(i);
    if (cite && c == u'\\' && i + 1 < champ.size()) {
      morceaux.last() += c;
      morceaux.last() += champ.at(++i);
      continue;
    }
    if (c == u'"') cite = !cite;
    if (!cite && c == u'<') entre = true;
    if (!cite && c == u'>') entre = false;
    if (!cite && !entre && (c == u',' || c == u';'))
      morceaux.append(QString());
    else
      morceaux.last() += c;
  }
  // A quote or a "<" without its end is a slip of the hand, and must not join what was meant apart.
  if (cite || entre) return QString(champ).replace(u';', u',').split(u',');
  return morceaux;
}

// "Anna <anna@exemple.fr>" is what mail programs show; the address is what stands between the signs.
// A line break in front of it is no part of any name, and what comes with one is not to be trusted.
QString AdresseSeule(const QString& morceau) {
  if (std::any_of(morceau.begin(), morceau.end(), EstControle)) return {};
  const qsizetype ouvre = morceau.lastIndexOf(u'<');
  return ouvre >= 0 && morceau.endsWith(u'>') ? morceau.mid(ouvre + 1).chopped(1).trimmed() : morceau;
}

bool EstDomaine(QStringView domaine) {
  return !domaine.isEmpty() && !domaine.startsWith(u'.') && !domaine.contains(u"..");
}

bool EstAdresse(const QString& adresse, bool locales) {
  // The first sign: what the system's mail program would take for an option, a file or a command.
  if (adresse.isEmpty() || adresse.size() > kAdresseMax || QStringLiteral("-/|:").contains(adresse.front()))
    return false;
  for (const QChar c : adresse)
    if (EstControle(c) || c.isSpace() || c == u'<' || c == u'>') return false;
  const qsizetype arobase = adresse.lastIndexOf(u'@');
  if (arobase < 0) return locales;
  return arobase > 0 && EstDomaine(QStringView(adresse).mid(arobase + 1));
}

}  // namespace

AdressesLues LitAdresses(const QString& champ, bool locales) {
  AdressesLues lues;
  const QStringList morceaux = Separe(champ);
  for (const QString& morceau : morceaux) {
    const QString propre = morceau.trimmed();
    if (propre.isEmpty()) continue;
    const QString adresse = AdresseSeule(propre);
    QStringList& liste = EstAdresse(adresse, locales) ? lues.Bonnes : lues.Mauvaises;
    const QString& mot = &liste == &lues.Bonnes ? adresse : propre;
    if (!liste.contains(mot)) liste.append(mot);
  }
  return lues;
}

}  // namespace vaktor
