// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences file of Mozilla's programs: lines of user_pref("name", value); in a small part of JavaScript.
// Format: modules/libpref of Mozilla's sources (the grammar stands at the head of its parser).
#pragma once

#include <QByteArray>
#include <QHash>
#include <variant>

namespace vaktor {

/// true or false, a number of 32 bits, or a text (UTF-8, never with a NUL in it).
using ValeurPref = std::variant<bool, qint32, QByteArray>;

/// By name.
class Prefs {
 public:
  /// Empty when there is no such text: a pref of another type counts as none, as it does for the program that wrote it.
  QByteArray Texte(const QByteArray& nom) const;
  qint64 Nombre(const QByteArray& nom, qint64 sans) const;

  QHash<QByteArray, ValeurPref> Valeurs;
};

inline constexpr qsizetype kNomPrefMax = 255;
inline constexpr qsizetype kTextePrefMax = 1 << 20;
inline constexpr qsizetype kPrefsMax = 50'000;

/// All well-formed preferences whose names begin with `prefixe`; of several of one name the last holds. A malformed one
/// costs its line: the reading goes on at the next. A name above kNomPrefMax or a text above kTextePrefMax bytes counts
/// as malformed; names beyond the first kPrefsMax are left out. Takes time in proportion to `octets`.
Prefs LitPrefs(QByteArrayView octets, QByteArrayView prefixe);

}  // namespace vaktor
