#include "ui/texts/text_tables.h"

namespace vaktor {

void TablesTextes::Remplit(qint32 langue) {
  if (langue == 0 || langue == 1) Colonne_ = langue;
}

QString TablesTextes::Texte(int) const { return {}; }
QString TablesTextes::Aide(int) const { return {}; }
QString TablesTextes::Messages(int) const { return {}; }
QString TablesTextes::LibelleBouton(int) const { return {}; }
QString TablesTextes::LibelleBoutonGris(int) const { return {}; }

}  // namespace vaktor
