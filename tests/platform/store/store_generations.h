// SPDX-License-Identifier: GPL-3.0-or-later
// Tables that tell whether they are whole: each key carries the number of its generation, with a tail whose
// length changes from one generation to the next.
#pragma once

#include <optional>

#include "settings/ports/settings_store.h"
#include "settings/settings_table.h"

namespace vaktor {

inline QString TexteGeneration(qint64 generation) {
  return QString::number(generation) + u':' + QString(generation * 37 % 101, u'x');
}

inline void EcritGeneration(MagasinReglages& magasin, qint64 generation) {
  for (const LigneReglage* ligne : OrdreSauvegarde()) {
    magasin.EcritReglage(QString::fromLatin1(ligne->Section), QString::fromLatin1(ligne->Cle),
                         TexteGeneration(generation));
  }
  magasin.Vide();
}

/// The generation of a whole table, nothing for a table of several.
inline std::optional<qint64> LitGeneration(const MagasinReglages& magasin) {
  const auto lit = [&](const LigneReglage* ligne) {
    return magasin.LitReglage(QString::fromLatin1(ligne->Section), QString::fromLatin1(ligne->Cle), QString());
  };
  const qint64 generation = lit(OrdreSauvegarde().front()).section(u':', 0, 0).toLongLong();
  for (const LigneReglage* ligne : OrdreSauvegarde()) {
    if (lit(ligne) != TexteGeneration(generation)) return std::nullopt;
  }
  return generation;
}

}  // namespace vaktor
