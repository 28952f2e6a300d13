// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"

namespace vaktor {

Echec::Echec(qint32 numero, const QString& description)
    : Numero_(numero), Description_(description), Texte8_(description.toUtf8()) {}

const char* Echec::what() const noexcept { return Texte8_.constData(); }

void LanceNonRelie(const char* qui) {
  throw Echec(kAppelIncorrect, QStringLiteral("%1 was not tied to what it works with.").arg(QLatin1String(qui)));
}

}  // namespace vaktor
