// The near-white bitmaps of the four pages, each with the faint sign of what it is about. The window's background is
// blended into them, so what is drawn here shows at half its strength. White captions stand on dark bars drawn here.
#include <QPainterPath>

#include "canvas.h"
#include "pieces.h"

namespace vaktor::art {
namespace {

constexpr QColor kTrait(226, 229, 234);
constexpr QColor kVoile(238, 240, 243);
constexpr QColor kBarre(86, 98, 126);

void DessineBarre(QPainter& p, const QRectF& r) {
  p.setPen(Qt::NoPen);
  p.setBrush(kBarre);
  p.drawRoundedRect(r, 3, 3);
}

void DessineOeil(QPainter& p) {
  DessineBarre(p, QRectF(4, 7, 112, 18));      // behind Label4
  DessineBarre(p, QRectF(4, 115.5, 112, 16));  // behind LabelRetard
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
}

void DessineRoue(QPainter& p) {
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
  const QPointF c(345, 104);
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
      p.fillRect(QRectF(0, 0, l, h), QColor(249, 249, 250));
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
