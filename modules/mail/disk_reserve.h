// SPDX-License-Identifier: GPL-3.0-or-later
// A little room on the disk that is kept for the day on which there is none: an alarm on a full disk still has words.
#pragma once

#include <QString>

namespace vaktor {

inline constexpr qint64 kOctetsReserve = 64LL * 1024;  ///< several mails without photos

/// Makes the file ".reserve" in the folder where it is missing and the disk has room to spare: many times as much,
/// since a reserve that fills the disk itself is none.
void TientReserve(const QString& dossier);
/// Gives its room back. False where there was none.
bool RendReserve(const QString& dossier);

}  // namespace vaktor
