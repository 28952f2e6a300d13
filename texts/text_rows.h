// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the five text tables, as data. Included by text_tables.cpp and nothing else.
#pragma once

#include <span>

#include "texts/phrase.h"
#include "texts/text_names.h"

namespace vaktor {

/// One row. A line break in a text is CR LF.
template <typename Nom>
struct LigneTexte {
  Nom Lequel;
  Phrase Mots;
};

/// The table that a name belongs to, by rising number.
std::span<const LigneTexte<Libelle>> LignesDe(Libelle);
std::span<const LigneTexte<Aide>> LignesDe(Aide);
std::span<const LigneTexte<Message>> LignesDe(Message);
/// By the index of the button.
std::span<const Phrase> LignesLibelleBouton();
std::span<const Phrase> LignesLibelleBoutonGris();

}  // namespace vaktor
