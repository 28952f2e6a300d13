// The rows of the five text tables, as data. Included by text_tables.cpp and nothing else.
#pragma once

#include <span>
#include <string_view>

namespace vaktor {

/// One row: its number and its text in both languages. A line break in a text is CR LF.
struct LigneTexte {
  int Numero;
  std::u16string_view Francais;
  std::u16string_view Anglais;
};

/// Each table by rising number, numbers with gaps.
std::span<const LigneTexte> LignesTexte();
std::span<const LigneTexte> LignesAide();
std::span<const LigneTexte> LignesMessages();
std::span<const LigneTexte> LignesLibelleBouton();
std::span<const LigneTexte> LignesLibelleBoutonGris();

}  // namespace vaktor
