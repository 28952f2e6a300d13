// SPDX-License-Identifier: GPL-3.0-or-later
// A text in every language of the program. All words that people read are one of these.
#pragma once

#include <QLocale>
#include <QString>
#include <array>
#include <concepts>
#include <utility>

#include "texts/language.h"

namespace vaktor {

/// A text of the program itself, UTF-8, one column a language in the order of Langue: {"Fermer", "Close"}. One that
/// lacks a column does not compile, so a further language finds every place where it has no words yet.
class Phrase {
 public:
  template <std::convertible_to<const char*>... Textes>
  consteval Phrase(const Textes&... textes) : Textes_{textes...} {
    static_assert(sizeof...(Textes) == kNombreLangues, "one text in each language, in the order of Langue");
  }

  QString Dit(Langue langue) const { return QString::fromUtf8(Textes_[RangLangue(langue)]); }
  /// With `noms` for %1, %2 and so on, all in one step: what is filled in may itself hold "%2".
  template <std::convertible_to<QString>... Noms>
  requires(sizeof...(Noms) > 0) QString Dit(Langue langue, const Noms&... noms)
  const { return Dit(langue).arg(static_cast<const QString&>(noms)...); }

 private:
  std::array<const char*, kNombreLangues> Textes_;
};

/// A text that was made while the program runs, in every language: for those who tell it to somebody whose language
/// they do not know, or know later.
struct PhraseDite {
  std::array<QString, kNombreLangues> Textes;

  PhraseDite() = default;
  PhraseDite(const Phrase& phrase) : PhraseDite(Compose([&](Langue langue) { return phrase.Dit(langue); })) {}

  const QString& Dit(Langue langue) const { return Textes[RangLangue(langue)]; }
  bool operator==(const PhraseDite&) const = default;

  /// `dit` gives the text in one language.
  template <std::invocable<Langue> Fonction>
  static PhraseDite Compose(Fonction&& dit) {
    PhraseDite phrase;
    for (const Langue langue : kLangues) phrase.Textes[RangLangue(langue)] = dit(langue);
    return phrase;
  }
};

/// What each language is called in that language: whoever looks for it may not read the others.
inline constexpr Phrase kNomsLangues{"Français", "English"};
/// How programs call each language: the names of the fields that hold its text, the language of a page.
inline constexpr Phrase kCodesLangues{"fr", "en"};
/// Whose days, months and decimal signs are written.
inline constexpr Phrase kPaysLangues{"fr_FR", "en_GB"};

inline QLocale DonneLocale(Langue langue) { return QLocale(kPaysLangues.Dit(langue)); }

}  // namespace vaktor
