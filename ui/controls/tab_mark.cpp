// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/tab_mark.h"

namespace vaktor {

namespace {

constexpr int kHauteurCoiffe = 2;  // the frame of the gauge ends above it
constexpr int kHauteurJointure = 1;
constexpr double kRayon = 2.0;

constexpr QColor kSurClair(44, 44, 150);
constexpr QColor kSurSombre(222, 222, 255);
constexpr QColor kCadrePage(245, 245, 245);  // the frame of a page, which no skin colours

}  // namespace

QRect PlaceMarque(const QRect& onglet) { return onglet.adjusted(0, -kHauteurCoiffe, 0, kHauteurJointure); }

void DessineMarque(QPainter& peintre, const QRect& onglet, const QColor& fond) {
  const QRect coiffe(onglet.left(), onglet.top() - kHauteurCoiffe, onglet.width(), kHauteurCoiffe);
  peintre.save();
  peintre.setRenderHint(QPainter::Antialiasing);
  peintre.setPen(Qt::NoPen);
  peintre.setBrush(qGray(fond.rgb()) < 128 ? kSurSombre : kSurClair);
  peintre.setClipRect(coiffe);
  // Only its upper corners are round: the lower ones lie below, where the clip ends.
  peintre.drawRoundedRect(coiffe.adjusted(0, 0, 0, static_cast<int>(kRayon)), kRayon, kRayon);
  peintre.restore();
  peintre.fillRect(QRect(onglet.left(), onglet.bottom() + 1, onglet.width(), kHauteurJointure), kCadrePage);
}

}  // namespace vaktor
