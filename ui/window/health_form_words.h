// Words of the list of what is wrong with the watch, beside those of the conditions themselves. By language, as
// texts/language.h tells.
#pragma once

#include <QString>

namespace vaktor {

/// The title of the list, its button, the line of an empty one, and "Since 2 January 2020, 09:05:03".
QString TitreSante(qint32 langue);
QString MotFermerSante(qint32 langue);
QString MotRienASignaler(qint32 langue);
QString MotDepuis(qint32 langue, const QString& moment);

}  // namespace vaktor
