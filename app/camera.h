// Chooses the capture driver of this run.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "engine/ports/capture_driver.h"
#include "texts/language.h"

namespace vaktor {

class MemoireCapture;

/// Gets ready for the camera that this run will open: `ou` is the one named at the start, empty for none, `reglages`
/// the folder of the settings. Before the process has a second thread.
void PrepareCapture(const QString& ou, const QString& reglages);

/// The file in the folder of the settings that holds what the driver remembers.
QString FichierMemoireCapture(const QString& reglages);

/// `ou`: the camera named at the start, empty for none. `memoire` outlives the driver.
std::unique_ptr<PiloteCapture> CreePilote(const QString& ou, MemoireCapture& memoire, std::function<Langue()> langue);

}  // namespace vaktor
