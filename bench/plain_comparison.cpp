// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>

#include "bench/comparison_peers.h"

namespace vaktor {

qint32 CompareSansApprets(const TrameBrute& trame, qint32 tolerance, qint32* table) {
  qint32 points = 0;
  qint32 minX = trame.Largeur, maxX = 0, minY = trame.Hauteur, maxY = 0;
  for (qint32 y = 0; y < trame.Hauteur; y += kPasEchantillon) {
    const uchar* ligne = trame.Bits + y * trame.OctetsParLigne;
    for (qint32 x = 0; x < trame.Largeur; x += kPasEchantillon) {
      const uchar* pixel = ligne + qsizetype{4} * x;
      const qint32 couleur = (pixel[0] << 16) | (pixel[1] << 8) | pixel[2];
      if (std::abs(couleur - *table) > tolerance) {
        ++points;
        if (x < minX) minX = x;
        if (x > maxX) maxX = x;
        if (y < minY) minY = y;
        if (y > maxY) maxY = y;
      }
      *table++ = couleur;
    }
  }
  return points + (minX ^ maxX ^ minY ^ maxY) % 2;  // so that the box is not optimised away
}

}  // namespace vaktor
