// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/common/field_text.h"

namespace vaktor {

void EcritChamp(QLineEdit& champ, const QString& texte) {
  if (texte == champ.text()) return;
  const auto apres = champ.text().size() - champ.cursorPosition();
  champ.setText(texte);
  champ.setCursorPosition(static_cast<int>(qMax<qsizetype>(0, texte.size() - apres)));
}

}  // namespace vaktor
