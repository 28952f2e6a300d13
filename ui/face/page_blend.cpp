// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/face/page_blend.h"

#include <algorithm>
#include <vector>

namespace vaktor {

namespace {

int MelangeCanal(int fond, int page) { return (fond * kPoidsFond + page * (255 - kPoidsFond) + 127) / 255; }

QRgb MelangePixel(QRgb fond, QRgb page) {
  return qRgb(MelangeCanal(qRed(fond), qRed(page)), MelangeCanal(qGreen(fond), qGreen(page)),
              MelangeCanal(qBlue(fond), qBlue(page)));
}

// For each pixel along one side of the pane: which pixel of the background shows through. `limite` keeps a background
// that is smaller than the window from being read beyond its edge.
std::vector<int> TrouveSources(int debut, int source, int destination, int limite) {
  std::vector<int> places(static_cast<std::size_t>(destination));
  for (int i = 0; i < destination; ++i) {
    const int place = debut + (2 * i + 1) * source / (2 * destination);
    places[static_cast<std::size_t>(i)] = std::min(place, limite - 1);
  }
  return places;
}

const QRgb* Ligne(const QImage& image, int y) {
  return static_cast<const QRgb*>(static_cast<const void*>(image.constScanLine(y)));
}

}  // namespace

QImage MelangePage(const QImage& page, const QImage& fond, const QRect& place, int echelle) {
  const QSize taille = place.size() * echelle;
  QImage melange = page.copy(QRect(QPoint(0, 0), taille));
  const QSize dedans = taille - QSize(2, 2) * echelle;
  if (fond.isNull() || dedans.isEmpty()) return melange;
  const std::vector<int> colonnes = TrouveSources(place.x() * echelle, taille.width(), dedans.width(), fond.width());
  const std::vector<int> lignes = TrouveSources(place.y() * echelle, taille.height(), dedans.height(), fond.height());
  for (std::size_t j = 0; j < lignes.size(); ++j) {
    const QRgb* source = Ligne(fond, lignes[j]);
    auto* cible = static_cast<QRgb*>(static_cast<void*>(melange.scanLine(static_cast<int>(j) + echelle))) + echelle;
    for (std::size_t i = 0; i < colonnes.size(); ++i) cible[i] = MelangePixel(source[colonnes[i]], cible[i]);
  }
  return melange;
}

}  // namespace vaktor
