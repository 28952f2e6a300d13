// SPDX-License-Identifier: GPL-3.0-or-later
// From main to the event loop and back.
#pragma once

namespace vaktor {

/// The exit status of the process: 0, 1 when the program could not start or lost something on its way out.
int LanceVaktor(int argc, char** argv);

}  // namespace vaktor
