// SPDX-License-Identifier: GPL-3.0-or-later
// Backgrounds of the other windows, the plate under the time stamp, the loudspeaker and the splash.
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include "canvas.h"
#include "pieces.h"

namespace vaktor::art {
namespace {

using Dessin = std::function<void(QPainter&)>;

void Livre(const QString& dossier, const QString& nom, int l, int h, const Dessin& dessin, double grain = 0,
           bool transparent = false) {
  for (const int echelle : {1, 2}) {
    QImage image = Dessine(l, h, echelle, dessin, transparent);
    if (grain > 0) AjouteGrain(image, grain, 3 * echelle, 21);
    Enregistre(image, dossier + QStringLiteral("/%1x").arg(echelle), nom);
  }
}

// Stretched far beyond the gallery's window, so that only its upper left part shows: a soft change of tone, no figure.
void DessineFondGalerie(QPainter& p) {
  QLinearGradient g(0, 0, 159, 131);
  g.setColorAt(0, QColor(72, 78, 88));
  g.setColorAt(0.3, QColor(52, 57, 66));
  g.setColorAt(1, QColor(24, 27, 33));
  p.fillRect(QRectF(0, 0, 159, 131), g);
}

// Laid down in strips of the list panel: its upper edge must meet its lower one.
void DessinePanneauGalerie(QPainter& p) {
  QLinearGradient g(0, 0, 403, 0);
  g.setColorAt(0, QColor(196, 202, 206));
  g.setColorAt(0.55, QColor(214, 219, 222));
  g.setColorAt(1, QColor(176, 183, 188));
  p.fillRect(QRectF(0, 0, 403, 882), g);
  p.setPen(QPen(QColor(255, 255, 255, 46), 1));
  for (int y = 0; y < 882; y += 7) p.drawLine(QPointF(0, y + 0.5), QPointF(403, y + 0.5));
}

void DessinePlaqueHeure(QPainter& p) {
  QLinearGradient g(0, 0, 0, 18);
  g.setColorAt(0, QColor(255, 255, 255));
  g.setColorAt(1, QColor(214, 219, 230));
  p.fillRect(QRectF(0, 0, 68, 18), QColor(70, 80, 104));
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawRect(QRectF(1, 1, 66, 16));
}

void DessineHautParleur(QPainter& p) {
  p.setPen(QPen(QColor(48, 56, 76), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.setBrush(QColor(120, 132, 168));
  p.drawPolygon(
      QPolygonF{QPointF(4, 12), QPointF(10, 12), QPointF(17, 5), QPointF(17, 27), QPointF(10, 20), QPointF(4, 20)});
  p.setBrush(Qt::NoBrush);
  for (const double r : {4.0, 8.0, 12.0}) {
    p.setPen(QPen(QColor(72, 84, 116), 2.0, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(QRectF(17 - r, 16 - r, 2 * r, 2 * r), -45 * 16, 90 * 16);
  }
}

void DessineAffiche(QPainter& p) {
  constexpr double kL = 420;
  constexpr double kH = 250;
  QLinearGradient fond(0, 0, kL, kH);
  fond.setColorAt(0, QColor(58, 68, 92));
  fond.setColorAt(0.55, QColor(33, 39, 56));
  fond.setColorAt(1, QColor(16, 19, 29));
  p.fillRect(QRectF(0, 0, kL, kH), fond);
  const QPointF c(310, 122);
  QRadialGradient halo(c, 190);
  halo.setColorAt(0, QColor(140, 156, 214, 130));
  halo.setColorAt(1, QColor(140, 156, 214, 0));
  p.fillRect(QRectF(0, 0, kL, kH), halo);
  for (int i = 0; i < 6; ++i) {
    const double r = 96 - 13.5 * i;
    QLinearGradient anneau(c - QPointF(r, r), c + QPointF(r, r));
    const int clair = i % 2 == 0 ? 150 : 60;
    anneau.setColorAt(0, QColor(clair, clair + 8, clair + 28));
    anneau.setColorAt(1, QColor(22, 26, 38));
    p.setPen(QPen(QColor(10, 12, 18), 1));
    p.setBrush(anneau);
    p.drawEllipse(c, r, r);
  }
  QRadialGradient verre(c - QPointF(10, 12), 34);
  verre.setColorAt(0, QColor(170, 186, 255));
  verre.setColorAt(0.4, QColor(66, 78, 150));
  verre.setColorAt(1, QColor(12, 14, 28));
  p.setPen(Qt::NoPen);
  p.setBrush(verre);
  p.drawEllipse(c, 27, 27);
  p.setBrush(QColor(255, 255, 255, 190));
  p.drawEllipse(c + QPointF(-9, -11), 4.5, 3.5);
  p.setBrush(QColor(255, 40, 40));
  p.drawEllipse(QPointF(396, 24), 5, 5);
  p.setPen(QPen(QColor(255, 255, 255, 60), 1));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(0.5, 0.5, kL - 1, kH - 1));
}

}  // namespace

void DessineFonds(const QString& dossier) {
  Livre(dossier, QStringLiteral("PictureFond"), 159, 131, DessineFondGalerie, 1.0);
  Livre(dossier, QStringLiteral("PictureAffTampon"), 403, 882, DessinePanneauGalerie, 1.0);
  Livre(dossier, QStringLiteral("PictHeure"), 68, 18, DessinePlaqueHeure);
  Livre(dossier, QStringLiteral("ImagePlaySon"), 32, 32, DessineHautParleur, 0, true);
  Livre(dossier, QStringLiteral("splash"), 420, 250, DessineAffiche, 0.8);
}

}  // namespace vaktor::art
