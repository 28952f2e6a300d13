// SPDX-License-Identifier: GPL-3.0-or-later
// When a disk counts as nearly full.
#pragma once

#include <QtGlobal>

namespace vaktor {

/// The free-space warning comes strictly below this; a decimal count, not 500 times 1,048,576.
inline constexpr qint64 kOctetsAvertissement = 500'000'000;

}  // namespace vaktor
