// SPDX-License-Identifier: GPL-3.0-or-later
// The languages that the program speaks, and what a stored number says of them. A further language is one enumerator
// here and one column in each table of words: whatever has no text in it does not compile (texts/phrase.h).
#pragma once

#include <QtGlobal>
#include <array>
#include <cstddef>
#include <optional>

namespace vaktor {

/// The value is the number under which the language is stored, and the place of its column.
enum class Langue : qint32 {
  kFrancais,
  kAnglais,
  kNombre  ///< how many there are
};

inline constexpr auto kNombreLangues = static_cast<std::size_t>(Langue::kNombre);

constexpr std::size_t RangLangue(Langue langue) { return static_cast<std::size_t>(langue); }

/// All of them, in the order of their columns.
inline constexpr std::array<Langue, kNombreLangues> kLangues = [] {
  std::array<Langue, kNombreLangues> langues{};
  for (std::size_t i = 0; i < kNombreLangues; ++i) langues[i] = static_cast<Langue>(i);
  return langues;
}();

/// The language of a stored number, none for a number that is no language: the numbered tables are not filled then, and
/// no page is opened in it. The one place where a number becomes a language.
constexpr std::optional<Langue> LitLangue(qint32 stockee) {
  if (stockee < 0 || stockee >= static_cast<qint32>(Langue::kNombre)) return std::nullopt;
  return static_cast<Langue>(stockee);
}

/// What all sentences outside the numbered tables are said in: a number that is no language speaks French, as a program
/// does that has just been installed.
constexpr Langue LangueParlee(qint32 stockee) { return LitLangue(stockee).value_or(Langue::kFrancais); }

}  // namespace vaktor
