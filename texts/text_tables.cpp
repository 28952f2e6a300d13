// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/text_tables.h"

#include <algorithm>
#include <functional>

#include "texts/text_rows.h"

namespace vaktor {
namespace {

// Empty for a name without a row, and before there is a language.
template <typename Nom>
QString Cherche(Nom texte, std::optional<Langue> langue) {
  const auto lignes = LignesDe(texte);
  const auto ligne = std::ranges::lower_bound(lignes, texte, std::less{}, &LigneTexte<Nom>::Lequel);
  return langue && ligne != lignes.end() && ligne->Lequel == texte ? ligne->Mots.Dit(*langue) : QString();
}

QString Cherche(std::span<const Phrase> lignes, int i, std::optional<Langue> langue) {
  const auto rang = static_cast<std::size_t>(i);
  return langue && i >= 0 && rang < lignes.size() ? lignes[rang].Dit(*langue) : QString();
}

}  // namespace

// A language that does not exist must not wipe the words on the screen: the tables keep what they hold, which on the
// very first call is nothing.
void TablesTextes::Remplit(std::optional<Langue> langue) {
  if (langue) Langue_ = langue;
}

QString TablesTextes::Dit(Libelle texte) const { return Cherche(texte, Langue_); }
QString TablesTextes::Dit(Aide texte) const { return Cherche(texte, Langue_); }
QString TablesTextes::Dit(Message texte) const { return Cherche(texte, Langue_); }
QString TablesTextes::LibelleBouton(int i) const { return Cherche(LignesLibelleBouton(), i, Langue_); }
QString TablesTextes::LibelleBoutonGris(int i) const { return Cherche(LignesLibelleBoutonGris(), i, Langue_); }

}  // namespace vaktor
