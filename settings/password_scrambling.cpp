// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/password_scrambling.h"

#include <algorithm>
#include <optional>

#include "base/failure.h"
#include "base/numbers.h"
#include "settings/ansi_code_page.h"

namespace vaktor {
namespace {

constexpr qsizetype kTailleGroupe = 3;
constexpr qint64 kCodeMax = 255;

// The number of one group. Blanks, a sign and a fraction are allowed as in every number of the program, but ASCII only,
// and no letter, not even that of an exponent: a wide blank, or "1e2", would otherwise make a number out of a password
// that lies in the store in clear.
std::optional<qint64> LitGroupe(const QString& groupe) {
  const bool lisible = std::ranges::all_of(groupe, [](QChar c) { return c.unicode() < 0x80 && !c.isLetter(); });
  if (!lisible) return std::nullopt;
  try {
    return TexteEnEntier(groupe);
  } catch (const Echec&) {
    return std::nullopt;
  }
}

}  // namespace

QString CryptePass(const QString& motDePasse) {
  QString stocke;
  qint64 position = 0;
  for (const QChar caractere : motDePasse) {
    const std::optional<quint8> code = CodeAnsi(caractere);
    if (!code) return motDePasse;
    qint64 c = *code + ++position;
    if (c > kCodeMax) c -= kCodeMax;
    stocke += QString::number(c).rightJustified(kTailleGroupe, u'0');
  }
  return stocke;
}

QString DecryptePass(const QString& stocke) {
  QString motDePasse;
  qint64 k = 0;
  for (qsizetype debut = 0; debut < stocke.size(); debut += kTailleGroupe) {
    ++k;
    const std::optional<qint64> nombre = LitGroupe(stocke.mid(debut, kTailleGroupe));
    if (!nombre) return stocke;
    qint64 x = *nombre - k;
    // Not the inverse of the wrap in CryptePass: the result is always above 510 and so refused below. The companions
    // do the same; a better inverse here would make two programs read two passwords out of one text.
    if (x < 0) x = kCodeMax - (x - kCodeMax);
    if (x > kCodeMax) return stocke;
    motDePasse += CaractereAnsi(static_cast<quint8>(x));
  }
  return motDePasse;
}

}  // namespace vaktor
