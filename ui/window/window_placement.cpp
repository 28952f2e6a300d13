// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/window_placement.h"

#include <algorithm>
#include <array>

namespace vaktor {

namespace {

constexpr int kEcart = 12;  // pixels between the two windows

QPoint Retient(const QRect& ecran, const QPoint& place, const QSize& taille) {
  const int x = std::min(place.x(), ecran.right() + 1 - taille.width());
  const int y = std::min(place.y(), ecran.bottom() + 1 - taille.height());
  return {std::max(x, ecran.left()), std::max(y, ecran.top())};
}

int Recouvre(const QRect& fenetre, const QPoint& place, const QSize& taille) {
  const QRect commun = fenetre & QRect(place, taille);
  return commun.width() * commun.height();
}

}  // namespace

QPoint PlaceFenetre(const QRect& ecran, const QRect& fenetre, const QSize& taille) {
  const int droite = ecran.right() + 1 - taille.width();
  const int bas = ecran.bottom() + 1 - taille.height();
  const std::array candidates = {QPoint(fenetre.right() + 1 + kEcart, fenetre.top()),
                                 QPoint(fenetre.left() - kEcart - taille.width(), fenetre.top()),
                                 QPoint(fenetre.left(), fenetre.bottom() + 1 + kEcart),
                                 QPoint(fenetre.left(), fenetre.top() - kEcart - taille.height()),
                                 QPoint(droite, bas),
                                 QPoint(ecran.left(), bas),
                                 QPoint(droite, ecran.top()),
                                 ecran.topLeft()};
  QPoint meilleure = ecran.topLeft();
  int moindre = fenetre.width() * fenetre.height() + 1;
  for (const QPoint& candidate : candidates) {
    const QPoint place = Retient(ecran, candidate, taille);
    const int recouvre = Recouvre(fenetre, place, taille);
    if (recouvre >= moindre) continue;
    moindre = recouvre;
    meilleure = place;
  }
  return meilleure;
}

QPoint PlaceCentree(const QRect& ecran, const QSize& taille) {
  return ecran.topLeft() + QPoint((ecran.width() - taille.width()) / 2, (ecran.height() - taille.height()) / 2);
}

}  // namespace vaktor
