// Chooses the capture driver of this run.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "engine/ports/capture_driver.h"

namespace vaktor {

class MemoireCapture;

/// `ou`: the camera named at the start, empty for none. `memoire` outlives the driver.
std::unique_ptr<PiloteCapture> CreePilote(const QString& ou, MemoireCapture& memoire, std::function<qint32()> langue);

}  // namespace vaktor
