// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/numbers.h"

#include <cmath>
#include <limits>

#include "base/failure.h"

namespace vaktor {
namespace {

[[noreturn]] void LanceDepassement() { throw Echec(kDepassement, QStringLiteral("Overflow")); }

qint32 Borne32(qint64 valeur) {
  if (valeur < std::numeric_limits<qint32>::min() || valeur > std::numeric_limits<qint32>::max()) LanceDepassement();
  return static_cast<qint32>(valeur);
}

}  // namespace

qint32 AjouteVerifie(qint32 a, qint32 b) { return Borne32(qint64{a} + b); }
qint32 SoustraitVerifie(qint32 a, qint32 b) { return Borne32(qint64{a} - b); }

qint32 ArrondiPair(double valeur) {
  // Not std::nearbyint: its result hangs on the rounding mode of the thread, which other code may have changed.
  const double bas = std::floor(valeur);
  const double reste = valeur - bas;
  double entier = bas;
  if (reste > 0.5 || (reste == 0.5 && std::fmod(bas, 2.0) != 0.0)) entier = bas + 1.0;
  if (!(entier >= std::numeric_limits<qint32>::min() && entier <= std::numeric_limits<qint32>::max())) {
    LanceDepassement();
  }
  return static_cast<qint32>(entier);
}

qint32 TexteEnEntier(const QString& texte) {
  bool lisible = false;
  const double valeur = texte.trimmed().toDouble(&lisible);
  if (!lisible) throw Echec(kTypeIncompatible, QStringLiteral("Type mismatch"));
  return ArrondiPair(valeur);
}

qint32 ChiffresEnEntierBorne(const QString& chiffres) {
  qint64 valeur = 0;
  for (const QChar c : chiffres) {
    valeur = valeur * 10 + c.digitValue();
    if (valeur > std::numeric_limits<qint32>::max()) return std::numeric_limits<qint32>::max();
  }
  return static_cast<qint32>(valeur);
}

QString GardeChiffres(const QString& texte) {
  QString chiffres = texte;
  return chiffres.removeIf([](QChar c) { return c < u'0' || c > u'9'; });
}

QString BorneChiffres(const QString& chiffres) {
  constexpr qint32 kPlusGrand = std::numeric_limits<qint32>::max();
  return ChiffresEnEntierBorne(chiffres) == kPlusGrand ? QString::number(kPlusGrand) : chiffres;
}

QString NettoieNombre(const QString& texte, const QString& defaut, qint32 minimum) {
  const QString chiffres = BorneChiffres(GardeChiffres(texte));
  if (chiffres.isEmpty()) return defaut;
  return ChiffresEnEntierBorne(chiffres) < minimum ? QStringLiteral("1") : chiffres;
}

}  // namespace vaktor
