// SPDX-License-Identifier: GPL-3.0-or-later
// Words of the list of what is wrong with the watch, beside those of the conditions themselves.
#pragma once

#include <QString>

#include "texts/language.h"

namespace vaktor {

/// The title of the list, its button, the line of an empty one, and "Since 2 January 2020, 09:05:03".
QString TitreSante(Langue langue);
QString MotFermerSante(Langue langue);
QString MotRienASignaler(Langue langue);
QString MotDepuis(Langue langue, const QString& moment);

}  // namespace vaktor
