// SPDX-License-Identifier: GPL-3.0-or-later
// A name beside one that is taken.
#pragma once

#include <QByteArray>

namespace vaktor {

/// The `rang`-th name, 1 and up, beside a file's own: a letter before the ending, "a" to "z", then "za" and so on, so
/// that all of them sort behind the first and in their order. "Photo 00012.jpg" gives "Photo 00012a.jpg". `chemin` is a
/// whole path with "/" between folders, or a name alone; a name without ending gets its letter at the end.
QByteArray NomVoisin(const QByteArray& chemin, int rang);

}  // namespace vaktor
