// SPDX-License-Identifier: GPL-3.0-or-later
// A disk with a bad sector: the reading of each file fails on the way.
#pragma once

#include <QtGlobal>

namespace vaktor::essai {

/// While it lives, no regular file can be read beyond so many bytes, by Qt neither: EIO.
struct MauvaisSecteur {
  explicit MauvaisSecteur(qint64 octets);
  ~MauvaisSecteur();
  MauvaisSecteur(const MauvaisSecteur&) = delete;
  MauvaisSecteur& operator=(const MauvaisSecteur&) = delete;
};

}  // namespace vaktor::essai
