// SPDX-License-Identifier: GPL-3.0-or-later
// Which names of the file system can be a part of a stored path.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// False for a name or path with a "\" in it, which stands between folders in stored paths, and for one that is no
/// UTF-8: neither would find its folder again.
inline bool EstCheminRangeable(const QByteArray& nom) {
  return !nom.contains('\\') && QString::fromUtf8(nom).toUtf8() == nom;
}

}  // namespace vaktor
