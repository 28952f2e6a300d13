// SPDX-License-Identifier: GPL-3.0-or-later
// The signs of the health of the watch, one for each gravity. They differ in shape and in mark before they differ in
// colour, and carry a light rim and a dark one, so that they stand out on every skin.
#include <QPainterPath>
#include <cmath>
#include <numbers>

#include "canvas.h"
#include "pieces.h"

namespace vaktor::art {
namespace {

constexpr int kCote = 20;

void PeintCorps(QPainter& p, const QPainterPath& corps, const QColor& couleur) {
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(QColor(255, 255, 255, 230), 3.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPath(corps);
  p.setBrush(couleur);
  p.setPen(QPen(couleur.darker(190), 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPath(corps);
}

// Blind: the stop sign with a cross.
void DessineAveugle(QPainter& p) {
  QPolygonF octogone;
  for (int i = 0; i < 8; ++i) {
    const double angle = (i + 0.5) * std::numbers::pi / 4;
    octogone << QPointF(10 + 8.6 * std::cos(angle), 10 + 8.6 * std::sin(angle));
  }
  QPainterPath corps;
  corps.addPolygon(octogone);
  corps.closeSubpath();
  PeintCorps(p, corps, QColor(0xC4, 0x16, 0x1C));
  p.setPen(QPen(Qt::white, 2.4, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(6.8, 6.8), QPointF(13.2, 13.2));
  p.drawLine(QPointF(13.2, 6.8), QPointF(6.8, 13.2));
}

// Lame: the warning triangle.
void DessineBoiteuse(QPainter& p) {
  QPainterPath corps;
  corps.moveTo(10, 2.2);
  corps.lineTo(18.2, 17.2);
  corps.lineTo(1.8, 17.2);
  corps.closeSubpath();
  PeintCorps(p, corps, QColor(0xFF, 0xB8, 0x00));
  p.setPen(QPen(QColor(0x30, 0x22, 0x00), 2.2, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(10, 7.6), QPointF(10, 11.6));
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x30, 0x22, 0x00));
  p.drawEllipse(QPointF(10, 14.8), 1.25, 1.25);
}

// Notice: the "i" in its circle.
void DessineAvis(QPainter& p) {
  QPainterPath corps;
  corps.addEllipse(QPointF(10, 10), 8.0, 8.0);
  PeintCorps(p, corps, QColor(0x1C, 0x5F, 0xB4));
  p.setPen(QPen(Qt::white, 2.2, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(10, 9.6), QPointF(10, 14.2));
  p.setPen(Qt::NoPen);
  p.setBrush(Qt::white);
  p.drawEllipse(QPointF(10, 6.1), 1.3, 1.3);
}

}  // namespace

void DessineSignes(const QString& dossier) {
  const auto livre = [&](const char* nom, const std::function<void(QPainter&)>& dessin) {
    for (const int echelle : {1, 2}) {
      Enregistre(Dessine(kCote, kCote, echelle, dessin, true), dossier + QStringLiteral("/%1x").arg(echelle),
                 QString::fromLatin1(nom));
    }
  };
  livre("SANTE0", DessineAveugle);
  livre("SANTE1", DessineBoiteuse);
  livre("SANTE2", DessineAvis);
}

}  // namespace vaktor::art
