// SPDX-License-Identifier: GPL-3.0-or-later
// Chooses the capture driver of this run.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "engine/ports/capture_driver.h"
#include "texts/language.h"

namespace vaktor {

class MemoireCapture;

/// The file in the folder of the settings that holds what the driver remembers.
QString FichierMemoireCapture(const QString& reglages);

/// Prints which camera a start with this `ou` and this folder of the settings would have. The status of the program: 0,
/// or 3 where there is none.
int DitCameras(const QString& ou, const QString& reglages);

/// The log of the capture, "capture.log" in this folder, which is made: takes its lines from any thread, and holds
/// none.
std::function<void(const QString&)> OuvreJournalCapture(const QString& dossier);

/// `ou`: the camera named at the start, empty for none. `memoire` outlives the driver. `etat`: the folder of the log.
std::unique_ptr<PiloteCapture> CreePilote(const QString& ou, MemoireCapture& memoire, std::function<Langue()> langue,
                                          const QString& etat);

}  // namespace vaktor
