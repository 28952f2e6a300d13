// SPDX-License-Identifier: GPL-3.0-or-later
// Which camera a start would have, told in words before anything is opened: "--cameras", which ./run asks too.
#pragma once

#include <QString>

namespace vaktor {

class AccesV4L2;
class MemoireCapture;

struct RapportCameras {
  QString Texte;         ///< lines for a terminal, in English, without a password and without control characters
  bool YEnAUne = false;  ///< something will be opened: named, chosen in the source dialog, or connected
};

/// `ou`: the camera named at the start, empty for none; then what was chosen in the source dialog counts, then what is
/// connected. Asks the devices, and waits for them no longer than `acces` does.
RapportCameras DecritCameras(const QString& ou, const MemoireCapture& memoire, const AccesV4L2& acces);

}  // namespace vaktor
