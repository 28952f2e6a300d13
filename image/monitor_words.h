// SPDX-License-Identifier: GPL-3.0-or-later
// What the monitor says to those who hear it.
#pragma once

#include <QSize>
#include <QString>

#include "engine/detection_state.h"
#include "texts/language.h"

namespace vaktor {

/// The picture's name.
QString MotImageCamera(Langue langue);
/// Where the zone lies in a picture of this size, in pixels; that it is the whole picture where it is.
QString DitZone(Langue langue, const ZoneDetection& zone, const QSize& image);
/// What the keys do with the zone.
QString DitTouchesZone(Langue langue);

}  // namespace vaktor
