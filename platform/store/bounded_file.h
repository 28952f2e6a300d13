// SPDX-License-Identifier: GPL-3.0-or-later
// Small files that another process writes, read without harm whatever may stand in their place.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// Reads a regular file of at most `limite` bytes into `octets`. Gives 0, or the system's error number with `octets`
/// empty: ELOOP for a link, EINVAL for what is no regular file, EFBIG for one that is larger. A pipe or a device is not
/// waited for; a disk that does not answer is. From any thread.
int LitFichierBorne(const QString& fichier, qint64 limite, QByteArray& octets);

/// Whether an error of LitFichierBorne is the file's own: it will be the same a moment later. Every other, also one
/// that nobody has thought of, says something about the machine, the disk or the network at that moment.
bool EstFauteDuFichier(int erreur);

}  // namespace vaktor
