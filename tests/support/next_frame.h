// SPDX-License-Identifier: GPL-3.0-or-later
// A newer frame of a driver, waited for as the program does it: by the wake that the driver promises.
#pragma once

#include <QEventLoop>
#include <QTimer>

#include "engine/ports/capture_driver.h"

namespace vaktor {

/// Takes the next frame. False when none came in this time, in milliseconds. Events run meanwhile.
inline bool SaisitProchaine(PiloteCapture& pilote, int limite = 110) {
  if (pilote.SaisitImage()) return true;
  QEventLoop boucle;
  QTimer::singleShot(limite, &boucle, &QEventLoop::quit);
  pilote.AttendImage([&boucle] { boucle.quit(); });
  boucle.exec();
  pilote.AttendImage({});
  return pilote.SaisitImage();
}

}  // namespace vaktor
