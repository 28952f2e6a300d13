// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are there after a power cut, or not there at all.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// Writes the parts one behind the other under another name ("<chemin>.part"), has them flushed to the disk, renames
/// and has the folder flushed: at no moment is there half a file under `chemin`. Mode 0600. Gives the system's error
/// number (ENOSPC for a full disk), 0 when all is on the disk; after an error the old file, if any, is untouched.
/// From any thread.
int EcritDurable(const QString& chemin, const QByteArrayList& parties);

/// Gives a file another name in the same folder, and has the folder flushed. False when the system refuses.
bool RenommeDurable(const QString& ancien, const QString& nouveau);

}  // namespace vaktor
