// SPDX-License-Identifier: GPL-3.0-or-later
// The near-white bitmaps of the four pages, each with the faint sign of what it is about. The window's background is
// blended into them, so what is drawn here shows at half its strength. White captions stand on dark bars drawn here.
#include <QLinearGradient>
#include <QPainterPath>

#include "canvas.h"
#include "pieces.h"

namespace vaktor::art {
namespace {

constexpr QColor kTrait(226, 229, 234);
constexpr QColor kVoile(238, 240, 243);
constexpr QColor kBarre(20, 25, 40);
constexpr QColor kIcone(104, 116, 146);

// Dark behind the words, then fading away: no wider than that takes, or the ground of a page as bright as the others
// would have to be pure white.
void DessineBarre(QPainter& p, const QRectF& r) {
  QLinearGradient g(r.topLeft(), r.topRight());
  QColor fin = kBarre;
  fin.setAlpha(0);
  g.setColorAt(0, kBarre);
  g.setColorAt(0.62, kBarre);
  g.setColorAt(1, fin);
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawRoundedRect(r, 3, 3);
}

// --- Signs of the switches and buttons, about 22 x 18 points around their middle.

QPen Plume(double epaisseur) { return {kIcone, epaisseur, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

void DessineAppareil(QPainter& p, const QPointF& c) {
  p.setPen(Qt::NoPen);
  p.setBrush(kIcone);
  QPainterPath boitier;
  boitier.addRoundedRect(QRectF(c.x() - 11, c.y() - 6, 22, 14), 2.5, 2.5);
  QPainterPath viseur;
  viseur.addRoundedRect(QRectF(c.x() - 5, c.y() - 9, 10, 6), 1.5, 1.5);
  QPainterPath objectif;
  objectif.addEllipse(c + QPointF(0, 1), 4.6, 4.6);
  p.drawPath(boitier.united(viseur).subtracted(objectif));
  p.drawEllipse(c + QPointF(0, 1), 2.6, 2.6);
}

void DessineCamera(QPainter& p, const QPointF& c) {
  p.setPen(Qt::NoPen);
  p.setBrush(kIcone);
  p.drawRoundedRect(QRectF(c.x() - 13, c.y() - 7, 17, 14), 2.5, 2.5);
  p.drawPolygon(QPolygonF{c + QPointF(6, -1.5), c + QPointF(13, -6), c + QPointF(13, 6), c + QPointF(6, 1.5)});
}

void DessineSonnerie(QPainter& p, const QPointF& c) {
  p.setPen(Plume(1));
  p.setBrush(kIcone);
  p.drawPolygon(QPolygonF{c + QPointF(-11, -3), c + QPointF(-6.5, -3), c + QPointF(-1, -8), c + QPointF(-1, 8),
                          c + QPointF(-6.5, 3), c + QPointF(-11, 3)});
  p.setBrush(Qt::NoBrush);
  p.setPen(Plume(1.8));
  for (const double r : {4.5, 8.5}) p.drawArc(QRectF(c.x() + 0.5 - r, c.y() - r, 2 * r, 2 * r), -48 * 16, 96 * 16);
}

void DessineLettre(QPainter& p, const QPointF& c) {
  p.setPen(Plume(1.8));
  p.setBrush(Qt::NoBrush);
  p.drawRoundedRect(QRectF(c.x() - 11, c.y() - 7.5, 22, 15), 2, 2);
  p.drawPolyline(QPolygonF{c + QPointF(-10, -6.5), c + QPointF(0, 1.5), c + QPointF(10, -6.5)});
}

void DessineMontre(QPainter& p, const QPointF& c) {
  p.setPen(Plume(1.8));
  p.setBrush(Qt::NoBrush);
  p.drawEllipse(c + QPointF(0, 1), 7.5, 7.5);
  p.drawLine(c + QPointF(0, 1), c + QPointF(0, -3.5));
  p.drawLine(c + QPointF(0, 1), c + QPointF(3.2, 1));
  p.drawLine(c + QPointF(-2.2, -9.5), c + QPointF(2.2, -9.5));
}

void DessineAide(QPainter& p, const QPointF& c) {
  p.setPen(Plume(1.8));
  p.setBrush(Qt::NoBrush);
  p.drawEllipse(c, 9.5, 9.5);
  p.setPen(Plume(2));
  QPainterPath point(c + QPointF(-3, -2.4));
  point.cubicTo(c + QPointF(-3, -7), c + QPointF(3.4, -7), c + QPointF(3.2, -2.6));
  point.cubicTo(c + QPointF(3.1, 0), c + QPointF(0, -0.2), c + QPointF(0, 2.2));
  p.drawPath(point);
  p.drawPoint(c + QPointF(0, 5.6));
}

void DessineLangues(QPainter& p, const QPointF& c) {
  p.setPen(Plume(1.8));
  p.setBrush(Qt::NoBrush);
  QPainterPath bulle;
  bulle.addRoundedRect(QRectF(c.x() - 12, c.y() - 8.5, 24, 14), 3.5, 3.5);
  QPainterPath pointe;
  pointe.addPolygon(QPolygonF{c + QPointF(-6, 4), c + QPointF(-7, 10), c + QPointF(0, 4), c + QPointF(-6, 4)});
  p.drawPath(bulle.united(pointe));
  for (const double y : {-4.4, -0.6}) p.drawLine(c + QPointF(-7, y), c + QPointF(y < -2 ? 7 : 2, y));
}

void DessinePinceau(QPainter& p, const QPointF& c) {
  QPainterPath palette;
  palette.addEllipse(c, 9.5, 8);
  for (const QPointF& trou : {QPointF(-4.4, -1.6), QPointF(0, -4.2), QPointF(4.4, -1.8), QPointF(3, 3.4)}) {
    QPainterPath couleur;
    couleur.addEllipse(c + trou, 1.7, 1.7);
    palette = palette.subtracted(couleur);
  }
  p.setPen(Qt::NoPen);
  p.setBrush(kIcone);
  p.drawPath(palette);
}

// A faint card behind a group of controls.
void DessineCarte(QPainter& p, const QRectF& r) {
  p.setPen(QPen(kTrait, 1));
  p.setBrush(QColor(255, 255, 255));
  p.drawRoundedRect(r.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
}

void DessineOeil(QPainter& p) {
  DessineBarre(p, QRectF(4, 7, 80, 18.5));    // behind Label4
  DessineBarre(p, QRectF(4, 115.5, 80, 16));  // behind LabelRetard
  const QPointF c(190, 112);
  QPainterPath paupieres(QPointF(c.x() - 62, c.y()));
  paupieres.quadTo(c.x(), c.y() - 62, c.x() + 62, c.y());
  paupieres.quadTo(c.x(), c.y() + 62, c.x() - 62, c.y());
  p.setPen(QPen(kTrait, 4));
  p.setBrush(Qt::NoBrush);
  p.drawPath(paupieres);
  p.setBrush(kVoile);
  p.drawEllipse(c, 23, 23);
  p.setBrush(kTrait);
  p.drawEllipse(c, 9, 9);
  // Between each box and its caption; the clock beside the seconds.
  DessineAppareil(p, QPointF(51, 37));
  DessineSonnerie(p, QPointF(51, 64));
  DessineLettre(p, QPointF(51, 92));
  DessineMontre(p, QPointF(34, 145));
}

void DessineReglages(QPainter& p) {
  for (const QRectF& carte : {QRectF(2, 18, 84, 90), QRectF(90, 18, 84, 90), QRectF(186, 18, 84, 90),
                              QRectF(280, 18, 57, 90), QRectF(164, 128, 134, 34)}) {
    DessineCarte(p, carte);
  }
  DessineCamera(p, QPointF(44, 41));
  DessineSonnerie(p, QPointF(132, 41));
  DessineAide(p, QPointF(228, 41));
  DessineLangues(p, QPointF(308.5, 42));
  DessinePinceau(p, QPointF(186, 146));
}

void DessineRoue(QPainter& p) {
  p.save();
  p.translate(338, 118);
  QPainterPath roue;
  for (int i = 0; i < 10; ++i) {
    QPainterPath dent;
    dent.addRoundedRect(QRectF(-8, -66, 16, 26), 3, 3);
    roue = roue.united(QTransform().rotate(36.0 * i).map(dent));
  }
  QPainterPath disque, trou;
  disque.addEllipse(QPointF(0, 0), 50, 50);
  trou.addEllipse(QPointF(0, 0), 22, 22);
  p.setPen(QPen(kTrait, 2));
  p.setBrush(kVoile);
  p.drawPath(roue.united(disque).subtracted(trou));
  p.restore();
  DessineReglages(p);
}

void DessineEnveloppe(QPainter& p) {
  p.translate(330, 102);
  p.rotate(-9);
  p.setPen(QPen(kTrait, 3.5));
  p.setBrush(kVoile);
  p.drawRoundedRect(QRectF(-58, -38, 116, 76), 5, 5);
  p.setBrush(Qt::NoBrush);
  p.drawPolyline(QPolygonF{QPointF(-56, -35), QPointF(0, 10), QPointF(56, -35)});
  p.drawLine(QPointF(-56, 35), QPointF(-18, -3));
  p.drawLine(QPointF(56, 35), QPointF(18, -3));
}

void DessineGlobe(QPainter& p) {
  const QPointF c(345, 91);
  p.setPen(QPen(kTrait, 3));
  p.setBrush(kVoile);
  p.drawEllipse(c, 52, 52);
  p.setBrush(Qt::NoBrush);
  for (const double rx : {17.0, 37.0}) p.drawEllipse(c, rx, 52);
  p.drawLine(c - QPointF(52, 0), c + QPointF(52, 0));
  p.drawLine(c - QPointF(0, 52), c + QPointF(0, 52));
  QPainterPath disque;
  disque.addEllipse(c, 52, 52);
  p.setClipPath(disque);
  p.drawArc(QRectF(c.x() - 62, c.y() - 72, 124, 60), -150 * 16, 120 * 16);
  p.drawArc(QRectF(c.x() - 62, c.y() + 12, 124, 60), 30 * 16, 120 * 16);
}

void Livre(const QString& dossier, int index, int l, int h, void (*dessin)(QPainter&)) {
  for (const int echelle : {1, 2}) {
    QImage image = Dessine(l, h, echelle, [&](QPainter& p) {
      p.fillRect(QRectF(0, 0, l, h), QColor(251, 251, 252));
      dessin(p);
    });
    AjusteMoyenne(image, QColor(245, 245, 245));
    Enregistre(image, dossier + QStringLiteral("/%1x").arg(echelle), QStringLiteral("PictPage%1").arg(index));
  }
}

}  // namespace

void DessinePagesPlan(const QString& dossier) {
  Livre(dossier, 0, 408, 164, DessineEnveloppe);
  Livre(dossier, 1, 410, 175, DessineOeil);
  Livre(dossier, 2, 408, 164, DessineGlobe);
  Livre(dossier, 3, 416, 200, DessineRoue);
}

}  // namespace vaktor::art
