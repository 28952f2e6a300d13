// SPDX-License-Identifier: GPL-3.0-or-later
// The numbered texts in the language of the moment. Data only: who shows which word is told by the forms.
#pragma once

#include <QString>
#include <optional>

#include "texts/language.h"
#include "texts/text_names.h"

namespace vaktor {

/// The five tables of the current language. Owner: app/ makes one; forms read it. All texts are empty before the first
/// filling.
class TablesTextes {
 public:
  /// Fills all tables. No language, from a damaged setting, fills nothing and leaves what the tables hold.
  void Remplit(std::optional<Langue> langue);
  /// Of the last filling that had one, for words that stand in no table; French before the first.
  Langue Parlee() const { return Langue_.value_or(Langue::kFrancais); }

  QString Dit(Libelle texte) const;
  QString Dit(Aide texte) const;
  QString Dit(Message texte) const;
  QString LibelleBouton(int i) const;      ///< faces of Bouton, 0 to 7; 7 is Bouton(0) while the camera runs
  QString LibelleBoutonGris(int i) const;  ///< faces of BoutonGris, 0 to 8

 private:
  std::optional<Langue> Langue_;
};

}  // namespace vaktor
