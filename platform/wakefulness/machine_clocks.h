// SPDX-License-Identifier: GPL-3.0-or-later
// The clocks of the machine.
#pragma once

#include "health/ports/awake_machine.h"

namespace vaktor {

/// Any thread.
InstantsMachine LitHorlogesMachine();

}  // namespace vaktor
