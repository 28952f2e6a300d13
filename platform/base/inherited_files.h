// SPDX-License-Identifier: GPL-3.0-or-later
// What programs that are started from here do not get: our open files.
#pragma once

namespace vaktor {

/// Marks every open file of this process but the standard streams, so that no program started from now on holds it:
/// some libraries open a camera without saying so, and a companion that lives on would keep it from everybody. To be
/// called right before each start. From any thread.
void GardeFichiersOuverts();

}  // namespace vaktor
