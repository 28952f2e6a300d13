// SPDX-License-Identifier: GPL-3.0-or-later
// What is said of an address that is none: at its field, and in a rehearsal.
#pragma once

#include <QStringList>

#include "texts/phrase.h"

namespace vaktor {

/// `fausses`: what stands in the place of addresses; a long one is cut.
inline QString DitAdressesFausses(Langue langue, const QStringList& fausses) {
  constexpr qsizetype kMax = 80;
  const QString tout = fausses.join(QStringLiteral(", "));
  const QString montre = tout.size() > kMax ? tout.left(kMax) + QChar(0x2026) : tout;
  return Phrase{"Ce n'est pas une adresse eMail : %1", "This is no eMail address: %1"}.Dit(langue, montre);
}

}  // namespace vaktor
