// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pixel_view.h"

#include <cstring>

#include "base/numbers.h"
#include "engine/sampling.h"

namespace vaktor {

VueMouvement::VueMouvement() : Image_(kLargeur, kHauteur, QImage::Format_RGB32) { Image_.fill(Qt::black); }

void VueMouvement::Efface() {
  if (Noire_) return;
  Image_.fill(Qt::black);
  Noire_ = true;
}

void VueMouvement::MarquePoint(const TrameBrute& trame, qint32 x, qint32 y) {
  if (x > 2 * kLargeur || y > 2 * kHauteur) return;  // most of a large picture
  // The side is 1.5 and becomes 2; an odd coordinate lands on the even neighbour of its half, so blocks of odd columns
  // stand unevenly and may cover each other.
  const qint32 cote = ArrondiPair(kPasEchantillon / 2.0);
  const qint32 gauche = ArrondiPair(x / 2.0);
  const qint32 haut = ArrondiPair(y / 2.0);
  for (qint32 dy = 0; dy < cote; ++dy) {
    for (qint32 dx = 0; dx < cote; ++dx) {
      const bool dansTrame = x + dx >= 0 && x + dx < trame.Largeur && y + dy >= 0 && y + dy < trame.Hauteur;
      const bool dansVue = gauche + dx >= 0 && gauche + dx < kLargeur && haut + dy >= 0 && haut + dy < kHauteur;
      if (!dansTrame || !dansVue) continue;
      const uchar* source = trame.Bits + (y + dy) * trame.OctetsParLigne + qsizetype{4} * (x + dx);
      std::memcpy(Image_.scanLine(haut + dy) + qsizetype{4} * (gauche + dx), source, 4);
    }
  }
  Noire_ = false;
}

}  // namespace vaktor
