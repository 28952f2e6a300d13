// SPDX-License-Identifier: GPL-3.0-or-later
// Whole-number helpers with the rules that hold everywhere in the program: 32-bit arithmetic that fails on overflow
// instead of wrapping, reals that become integers by rounding halves to the even number, texts that become integers.
#pragma once

#include <QString>

namespace vaktor {

/// a + b, a - b. Throws Echec(kDepassement) when the result does not fit a signed 32-bit integer.
qint32 AjouteVerifie(qint32 a, qint32 b);
qint32 SoustraitVerifie(qint32 a, qint32 b);

/// The nearest integer; a half goes to the even neighbour (0.5 -> 0, 1.5 -> 2, 2.5 -> 2, -1.5 -> -2).
/// Throws Echec(kDepassement) for a value outside 32 bits or not a number.
qint32 ArrondiPair(double valeur);

/// Plain text to signed 32-bit integer: blanks around it and a sign are allowed, a fraction with "." is rounded by
/// ArrondiPair. Throws Echec(kTypeIncompatible) for a text that is no number (the empty text included),
/// Echec(kDepassement) for a number outside 32 bits.
qint32 TexteEnEntier(const QString& texte);

/// Digits only, clamped: the value of a text of decimal digits, the largest 32-bit value when it is longer than that,
/// 0 for the empty text. For fields that have already dropped everything but digits.
qint32 ChiffresEnEntierBorne(const QString& chiffres);

/// Decimal digits (0 to 9) stay, everything else goes, digits of other scripts too.
QString GardeChiffres(const QString& texte);

/// Digits whose value does not fit 32 bits give the largest 32-bit number; others stay as they are, leading zeros
/// included.
QString BorneChiffres(const QString& chiffres);

/// What a text typed into a number field becomes: digits only and within 32 bits; `defaut` when none is left; "1" when
/// the value is below `minimum` (0 or 1).
QString NettoieNombre(const QString& texte, const QString& defaut, qint32 minimum);

}  // namespace vaktor
