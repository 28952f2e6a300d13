// SPDX-License-Identifier: GPL-3.0-or-later
// The cameras of this machine, asked as the program asks.
#pragma once

#include "platform/capture/devices/device_access.h"

namespace vaktor {

inline QList<PeripheriqueVideo> ListePeripheriques() { return AccesV4L2().Peripheriques(); }
inline std::optional<PeripheriqueVideo> RetrouvePeripherique(const QString& nomStable) {
  return AccesV4L2().Retrouve(nomStable);
}

}  // namespace vaktor
