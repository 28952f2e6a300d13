// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of a rehearsal.
#pragma once

#include <QByteArray>

namespace vaktor {

/// Bytes: as a photo has them, so that a server that takes only small ones shows it.
inline constexpr qsizetype kTailleImageEssai = 32768;

/// A whole JPEG of that size, one point large; whoever opens the file finds words that say what it is.
QByteArray CreeImageEssai();

}  // namespace vaktor
