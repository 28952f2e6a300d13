// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/photo_name.h"

#include <limits>

#include "base/photo_format.h"

namespace vaktor {
namespace {

/// Digits of `texte` from `place` on, `nombre` of them, as a number; -1 where there are others.
int LitChiffres(QStringView texte, qsizetype place, int nombre) {
  int valeur = 0;
  for (qsizetype i = place; i < place + nombre; ++i) {
    const char16_t c = texte.at(i).unicode();
    if (c < u'0' || c > u'9') return -1;
    valeur = valeur * 10 + (c - u'0');
  }
  return valeur;
}

}  // namespace

// By hand and not by a pattern: fifty thousand names are read while somebody waits.
std::optional<NomPhoto> LitNomPhoto(QStringView nom) {
  constexpr qsizetype kNumero = 27;  // where the number begins
  if (nom.size() <= kNumero + kFinPhoto.size() || nom.sliced(10, 2) != u"  " || nom.sliced(20, 7) != u" Photo ")
    return std::nullopt;
  if (nom.at(4) != u'-' || nom.at(7) != u'-' || nom.at(14) != u'-' || nom.at(17) != u'-') return std::nullopt;
  const QDate jour(LitChiffres(nom, 0, 4), LitChiffres(nom, 5, 2), LitChiffres(nom, 8, 2));
  const QTime heure(LitChiffres(nom, 12, 2), LitChiffres(nom, 15, 2), LitChiffres(nom, 18, 2));
  qint64 numero = 0;
  qsizetype i = kNumero;
  for (; i < nom.size() && nom.at(i) >= u'0' && nom.at(i) <= u'9'; ++i) {
    numero = numero * 10 + (nom.at(i).unicode() - u'0');
    if (numero > std::numeric_limits<qint32>::max()) return std::nullopt;
  }
  if (i == kNumero || !jour.isValid() || !heure.isValid()) return std::nullopt;
  while (i < nom.size() && nom.at(i) >= u'a' && nom.at(i) <= u'z') ++i;
  if (!nom.sliced(i).startsWith(kFinPhoto, Qt::CaseInsensitive)) return std::nullopt;
  return NomPhoto{jour, heure, static_cast<qint32>(numero)};
}

}  // namespace vaktor
