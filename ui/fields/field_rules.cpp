// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/fields/field_rules.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>

#include "base/numbers.h"

namespace vaktor {

namespace {

constexpr qint32 kPlusGrand = std::numeric_limits<qint32>::max();

bool EstChiffre(QChar c) { return c >= u'0' && c <= u'9'; }

template <typename Garde>
QString Filtre(const QString& texte, Garde garde) {
  QString reste;
  std::copy_if(texte.cbegin(), texte.cend(), std::back_inserter(reste), garde);
  return reste;
}

// Digits and commas with the commas after the first taken away: the live interval has to be readable, or no frame
// would be looked at any more.
QString GardeUneVirgule(const QString& texte) {
  const auto virgule = texte.indexOf(u',');
  if (virgule < 0) return texte;
  return texte.left(virgule + 1) + QString(texte.mid(virgule + 1)).remove(u',');
}

// The value in the precision in which the live interval is read.
float LitValeur(QString texte) { return texte.replace(u',', u'.').toFloat(); }

}  // namespace

QString NettoieIntervalle(const QString& texte) {
  QString reste = GardeUneVirgule(Filtre(texte, [](QChar c) { return EstChiffre(c) || c == u','; }));
  if (reste.isEmpty()) return QStringLiteral("5");
  const auto entier = reste.indexOf(u',') < 0 ? reste : reste.left(reste.indexOf(u','));
  if (ChiffresEnEntierBorne(entier) == kPlusGrand) return QString::number(kPlusGrand);
  // Zero is zero whether the session takes "," as decimal sign or as a mark between groups of digits, so the test needs
  // no locale. It holds also for a fraction too small for the precision in which it is read later.
  return LitValeur(reste) >= std::numeric_limits<float>::min() ? reste : QStringLiteral("0,5");
}

QString NettoieServeur(QString texte) {
  texte.replace(u'\\', u'/');
  const auto barre = texte.indexOf(u'/');
  return barre < 0 ? texte : texte.left(barre);
}

QString TermineAdresse(QString adresse) {
  // In this order: an address that ends in "\" gets a second "/".
  if (!adresse.endsWith(u'/')) adresse += u'/';
  return adresse.replace(u'\\', u'/');
}

QString DonneMotCouleur(qint32 index, const QString& mot) {
  // "brawn" is the word that pages made so far carry; it stays.
  static constexpr std::array<const char*, 7> kMots = {"red", "green", "blue", "gray", "brawn", "yellow", "white"};
  if (index < 0 || index >= static_cast<qint32>(kMots.size())) return mot;
  return QLatin1String(kMots.at(static_cast<std::size_t>(index)));
}

bool SansServeurMaisPush(const Parametres& reglages) {
  return !reglages.PushAdresse.isEmpty() && reglages.SmtpServeur.isEmpty() && reglages.SmtpFrom.isEmpty();
}

bool SmtpIncomplet(const Parametres& reglages) {
  return reglages.SmtpActif && !SansServeurMaisPush(reglages) &&
         (reglages.SmtpServeur.isEmpty() || reglages.SmtpPort.isEmpty() || reglages.SmtpFrom.isEmpty());
}

}  // namespace vaktor
