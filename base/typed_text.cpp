// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/typed_text.h"

#include <algorithm>

namespace vaktor {

QString RetireBlancs(QString texte) {
  return texte.removeIf([](QChar c) { return c.isSpace(); });
}

QString RetireEspaces(QString texte) {
  return texte.removeIf([](QChar c) { return c == u' ' || c == u'\t'; });
}

QString GardePremiereLigne(const QString& texte) {
  const auto saut = std::find_if(texte.cbegin(), texte.cend(), [](QChar c) {
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
  });
  return texte.left(saut - texte.cbegin());
}

}  // namespace vaktor
