// SPDX-License-Identifier: GPL-3.0-or-later
// From main to the event loop and back.
#pragma once

namespace vaktor {

/// Everybody on the machine may read the words that a program was started with, as long as it runs. Of an address of a
/// camera that may hold a password they show nothing from here on.
void CacheMotsDePasse(int argc, char** argv);

/// The exit status of the process: 0, 1 when the program could not start or lost something on its way out.
int LanceVaktor(int argc, char** argv);

}  // namespace vaktor
