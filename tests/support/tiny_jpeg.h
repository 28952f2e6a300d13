// SPDX-License-Identifier: GPL-3.0-or-later
// The least that counts as a whole JPEG file, for tests that only move such files.
#pragma once

#include <QByteArray>

namespace vaktor {

/// A start mark, the head of a scan, `contenu` for its data, an end mark. No decoder would make a picture of it.
inline QByteArray PetitJpeg(const QByteArray& contenu) {
  return QByteArray("\xff\xd8\xff\xda\x00\x08\x01\x01\x00\x00\x3f\x00", 12) + contenu + "\xff\xd9";
}

}  // namespace vaktor
