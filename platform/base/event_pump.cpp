// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/event_pump.h"

#include <QCoreApplication>

namespace vaktor {

void PompeEvenementsQt::PompeMessages() {
  if (QCoreApplication::instance() != nullptr) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

}  // namespace vaktor
