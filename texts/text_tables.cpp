#include "texts/text_tables.h"

#include <algorithm>

#include "texts/text_rows.h"

namespace vaktor {
namespace {

// The text of row `numero` in column `colonne` (0 French, 1 English, -1 none yet); empty without such a row.
QString ChercheTexte(std::span<const LigneTexte> lignes, int numero, int colonne) {
  const auto ligne = std::ranges::lower_bound(lignes, numero, {}, &LigneTexte::Numero);
  if (colonne < 0 || ligne == lignes.end() || ligne->Numero != numero) return {};
  const std::u16string_view texte = colonne == 0 ? ligne->Francais : ligne->Anglais;
  return QString::fromUtf16(texte.data(), static_cast<qsizetype>(texte.size()));
}

}  // namespace

// A language that does not exist, from a damaged setting, must not wipe the words on the screen: the tables keep what
// they hold, which on the very first call is nothing.
void TablesTextes::Remplit(qint32 langue) {
  if (langue == 0 || langue == 1) Colonne_ = langue;
}

QString TablesTextes::Texte(int n) const { return ChercheTexte(LignesTexte(), n, Colonne_); }
QString TablesTextes::Aide(int n) const { return ChercheTexte(LignesAide(), n, Colonne_); }
QString TablesTextes::Messages(int n) const { return ChercheTexte(LignesMessages(), n, Colonne_); }
QString TablesTextes::LibelleBouton(int i) const { return ChercheTexte(LignesLibelleBouton(), i, Colonne_); }
QString TablesTextes::LibelleBoutonGris(int i) const { return ChercheTexte(LignesLibelleBoutonGris(), i, Colonne_); }

}  // namespace vaktor
