// SPDX-License-Identifier: GPL-3.0-or-later
// What a program leaves behind when it dies.
#pragma once

namespace vaktor {

/// From now on, and for every program that this one starts, a crash leaves no memory behind for others to read:
/// passwords stand in it in clear. No core file of its own (RLIMIT_CORE), and an empty one where the system hands it to
/// a program that asks for no limit (coredump_filter, core(5)). Where the system knows one of them not, the other
/// holds.
void InterditImageMemoire();

}  // namespace vaktor
