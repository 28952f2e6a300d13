// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/limits.h"

#include "base/failure.h"

namespace vaktor {

void LanceTablePleine() { throw Echec(kIndiceHorsPlage, QStringLiteral("Subscript out of range")); }

void LanceDepassement() { throw Echec(kDepassement, QStringLiteral("Overflow")); }

void LanceIntervalleIllisible() { throw Echec(kTypeIncompatible, QStringLiteral("Type mismatch")); }

}  // namespace vaktor
