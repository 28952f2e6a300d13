// SPDX-License-Identifier: GPL-3.0-or-later
// Lamps and flags: small, so every edge counts.
#include <QPainterPath>
#include <QRadialGradient>

#include "canvas.h"
#include "pieces.h"

namespace vaktor::art {
namespace {

void DessineLampe(QPainter& p, const QColor& couleur, bool allumee) {
  // Black corners: the round lamp sits in a square black socket. The body keeps exactly its own colour, the shine is a
  // small spot, so that the lamp reads at eight pixels.
  p.fillRect(QRectF(0, 0, 13, 12), Qt::black);
  p.setPen(Qt::NoPen);
  p.setBrush(couleur.darker(160));
  p.drawEllipse(QRectF(0.3, 0.2, 12.4, 11.6));
  p.setBrush(couleur);
  p.drawEllipse(QRectF(0.9, 0.8, 11.2, 10.4));
  QRadialGradient g(4.6, 3.6, 3);
  g.setColorAt(0, QColor(255, 255, 255, allumee ? 190 : 90));
  g.setColorAt(1, QColor(255, 255, 255, 0));
  p.setBrush(g);
  p.drawEllipse(QRectF(2, 1.6, 5.2, 4.4));
}

void DessineFrance(QPainter& p) {
  p.setRenderHint(QPainter::Antialiasing, false);
  p.fillRect(QRectF(0, 0, 6, 13), QColor(0, 38, 132));
  p.fillRect(QRectF(6, 0, 5, 13), QColor(250, 250, 250));
  p.fillRect(QRectF(11, 0, 6, 13), QColor(214, 24, 42));
}

void DessineRoyaumeUni(QPainter& p) {
  const QRectF cadre(0, 0, 17, 13);
  p.setClipRect(cadre);
  p.fillRect(cadre, QColor(1, 33, 105));
  p.setPen(QPen(Qt::white, 2.9));
  p.drawLine(QPointF(-1, -0.8), QPointF(18, 13.8));
  p.drawLine(QPointF(18, -0.8), QPointF(-1, 13.8));
  p.setPen(QPen(QColor(200, 16, 46), 1.0));
  p.drawLine(QPointF(-1, -0.4), QPointF(8.5, 6.9));
  p.drawLine(QPointF(18, 13.4), QPointF(8.5, 6.1));
  p.drawLine(QPointF(18, -1.2), QPointF(8.5, 6.1));
  p.drawLine(QPointF(-1, 14.2), QPointF(8.5, 6.9));
  p.setRenderHint(QPainter::Antialiasing, false);
  p.fillRect(QRectF(6, 0, 5, 13), Qt::white);
  p.fillRect(QRectF(0, 4, 17, 5), Qt::white);
  p.fillRect(QRectF(7, 0, 3, 13), QColor(200, 16, 46));
  p.fillRect(QRectF(0, 5, 17, 3), QColor(200, 16, 46));
}

void Livre(const QString& dossier, const QString& nom, int l, int h, const std::function<void(QPainter&)>& dessin) {
  for (const int echelle : {1, 2}) {
    Enregistre(Dessine(l, h, echelle, dessin), dossier + QStringLiteral("/%1x").arg(echelle), nom);
  }
}

}  // namespace

void DessineLampes(const QString& dossier) {
  const auto lampe = [&](const char* nom, const QColor& couleur, bool allumee) {
    Livre(dossier, QString::fromLatin1(nom), 13, 12, [&](QPainter& p) { DessineLampe(p, couleur, allumee); });
  };
  lampe("LEDRED", QColor(0xA8, 0x00, 0x00), false);
  lampe("LEDREDON", QColor(0xFF, 0x00, 0x00), true);
  lampe("LEDVERT", QColor(0x00, 0xFF, 0x00), true);
}

void DessineDrapeaux(const QString& dossier) {
  Livre(dossier, QStringLiteral("flag_fr"), 17, 13, DessineFrance);
  Livre(dossier, QStringLiteral("flag_en"), 17, 13, DessineRoyaumeUni);
}

}  // namespace vaktor::art
