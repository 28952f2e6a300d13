// SPDX-License-Identifier: GPL-3.0-or-later
// The application's icon: the lens of the house with its red lamp, readable from 16 pixels up.
#include <QLinearGradient>
#include <QRadialGradient>

#include "canvas.h"
#include "pieces.h"

namespace vaktor::art {
namespace {

// On a board of 64 points.
void DessineObjectifRond(QPainter& p, bool petit) {
  p.setPen(Qt::NoPen);
  QLinearGradient boitier(0, 2, 0, 62);
  boitier.setColorAt(0, QColor(108, 120, 156));
  boitier.setColorAt(1, QColor(44, 51, 72));
  p.setBrush(boitier);
  p.drawRoundedRect(QRectF(2, 2, 60, 60), 15, 15);
  QLinearGradient bague(12, 12, 52, 52);
  bague.setColorAt(0, QColor(236, 240, 250));
  bague.setColorAt(1, QColor(120, 128, 148));
  p.setBrush(bague);
  p.drawEllipse(QPointF(31, 34), 22, 22);
  p.setBrush(QColor(20, 23, 34));
  p.drawEllipse(QPointF(31, 34), petit ? 17 : 18.5, petit ? 17 : 18.5);
  QRadialGradient verre(QPointF(26, 28), 18);
  verre.setColorAt(0, QColor(178, 194, 255));
  verre.setColorAt(0.5, QColor(72, 88, 176));
  verre.setColorAt(1, QColor(22, 26, 58));
  p.setBrush(verre);
  p.drawEllipse(QPointF(31, 34), 13, 13);
  if (!petit) {
    p.setBrush(QColor(255, 255, 255, 200));
    p.drawEllipse(QPointF(26.5, 28.5), 3.4, 2.6);
  }
  p.setBrush(QColor(255, 32, 32));
  p.drawEllipse(QPointF(53, 12), petit ? 8 : 5.5, petit ? 8 : 5.5);
}

}  // namespace

void DessineIcone(const QString& dossier) {
  for (const int cote : {16, 24, 32, 48, 64, 128, 256}) {
    const QImage image = Dessine(
        cote, cote, 1,
        [&](QPainter& p) {
          p.scale(cote / 64.0, cote / 64.0);
          DessineObjectifRond(p, cote <= 24);
        },
        true);
    Enregistre(image, dossier + QStringLiteral("/icon"), QStringLiteral("vaktor_%1").arg(cote));
  }
}

}  // namespace vaktor::art
