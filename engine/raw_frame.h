// SPDX-License-Identifier: GPL-3.0-or-later
// Pixels in memory, as the comparison reads them.
#pragma once

#include <QtGlobal>

namespace vaktor {

/// Pixels of one picture as QImage::Format_RGB32 keeps them: four bytes B, G, R and one that is not looked at. Row y
/// begins at Bits + y * OctetsParLigne. OctetsParLigne may be 0: every row is then the same memory.
///
/// Serree: only the pixels of one phase are there (engine/sampling.h), and whoever reads it must know which. Those of a
/// row lie one behind the other: pixel x is found 4 * (x / kPasEchantillon) bytes behind the beginning of its row.
struct TrameBrute {
  const uchar* Bits = nullptr;
  qsizetype OctetsParLigne = 0;
  qint32 Largeur = 0, Hauteur = 0;  ///< of the picture, Serree or not
  bool Serree = false;
};

}  // namespace vaktor
