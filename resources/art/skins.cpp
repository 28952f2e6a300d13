// SPDX-License-Identifier: GPL-3.0-or-later
// The three window backgrounds. Status lines and gauge are written in dark grey on every skin, so each has light inlays
// where those stand: on the dark skin they make the text readable, on the light ones they give the band its relief.
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>
#include <numbers>

#include "canvas.h"
#include "pieces.h"

namespace vaktor::art {
namespace {

struct Teintes {
  QColor Haut, Bas;       // the plate, top to bottom
  QColor Incruste, Bord;  // inlays and their rim
  QColor Clair, Sombre;   // engraved lines: light edge, dark edge
};

void DessineIncrustation(QPainter& p, const QPainterPath& forme, const Teintes& t) {
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(t.Clair, 2));
  p.drawPath(forme.translated(0, 1));
  p.setPen(QPen(t.Bord, 1.6));
  p.drawPath(forme);
  const QRectF r = forme.boundingRect();
  QLinearGradient g(r.topLeft(), r.bottomLeft());
  g.setColorAt(0, t.Incruste.darker(108));
  g.setColorAt(0.18, t.Incruste);
  g.setColorAt(1, t.Incruste.lighter(104));
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawPath(forme);
}

QPainterPath TraceRond(const QRectF& r, double rayon) {
  QPainterPath trace;
  trace.addRoundedRect(r, rayon, rayon);
  return trace;
}

void DessineRainure(QPainter& p, double y, double x1, double x2, const Teintes& t) {
  p.setPen(QPen(t.Sombre, 1));
  p.drawLine(QPointF(x1, y + 0.5), QPointF(x2, y + 0.5));
  p.setPen(QPen(t.Clair, 1));
  p.drawLine(QPointF(x1, y + 1.5), QPointF(x2, y + 1.5));
}

// The mark of the house: the rings of a lens, half out of the window.
void DessineObjectif(QPainter& p, const QPointF& c, double rayon, const Teintes& t) {
  p.setBrush(Qt::NoBrush);
  for (int i = 0; i < 7; ++i) {
    const double r = rayon * (1.0 - 0.13 * i);
    p.setPen(QPen(t.Sombre, 1.2));
    p.drawEllipse(c, r, r);
    p.setPen(QPen(t.Clair, 1.2));
    p.drawEllipse(c + QPointF(0.8, 0.8), r, r);
  }
  QRadialGradient g(c - QPointF(rayon * 0.2, rayon * 0.25), rayon * 0.6);
  QColor reflet = t.Clair;
  reflet.setAlpha(70);
  g.setColorAt(0, reflet);
  reflet.setAlpha(0);
  g.setColorAt(1, reflet);
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawEllipse(c, rayon * 0.6, rayon * 0.6);
}

void DessinePlaque(QPainter& p, int l, int h, const Teintes& t) {
  QLinearGradient g(0, 0, 0, h);
  g.setColorAt(0, t.Haut);
  g.setColorAt(0.29, t.Haut.darker(106));
  g.setColorAt(0.30, t.Haut.darker(102));
  g.setColorAt(1, t.Bas);
  p.fillRect(QRectF(0, 0, l, h), g);
}

void DessineBandeau(QPainter& p, const Teintes& t) {
  DessineIncrustation(p, TraceRond(QRectF(84, 8, 216, 34), 4), t);  // the two status lines
  DessineIncrustation(p, TraceRond(QRectF(379, 9, 14, 34), 5), t);  // the lamps
  // The gauge from end to end, with its caption above the left end: one piece.
  DessineIncrustation(
      p, TraceRond(QRectF(6, 36.5, 74, 23), 4).united(TraceRond(QRectF(6, 45.5, 390, 14), 4)).simplified(), t);
  DessineRainure(p, 78, 0, 420, t);
}

QImage DessineSkin(int l, int h, int echelle, const Teintes& t, quint32 graine,
                   const std::function<void(QPainter&)>& decor, double grain, int etirement) {
  QImage image = Dessine(l, h, echelle, [&](QPainter& p) {
    DessinePlaque(p, l, h, t);
    decor(p);
  });
  AjouteGrain(image, grain, etirement * echelle, graine);
  QPainter p(&image);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(echelle, echelle);
  DessineBandeau(p, t);
  p.end();
  return image;
}

void Livre(const QString& dossier, const QString& nom, const QColor& moyenne, int couleurs,
           const std::function<QImage(int)>& dessin) {
  for (const int echelle : {1, 2}) {
    QImage image = dessin(echelle);
    AjusteMoyenne(image, moyenne);
    if (echelle == 1 && couleurs > 0) image = ReduitPalette(image, couleurs);
    Enregistre(image, dossier + QStringLiteral("/%1x").arg(echelle), nom);
  }
}

// Brushed metal with a lens.
QImage DessineMetal(int echelle) {
  const Teintes t{QColor(204, 209, 204), QColor(160, 167, 161),      QColor(224, 229, 224),
                  QColor(120, 128, 121), QColor(232, 238, 232, 150), QColor(96, 104, 97, 110)};
  return DessineSkin(
      403, 277, echelle, t, 11, [&](QPainter& p) { DessineObjectif(p, QPointF(352, 214), 118, t); }, 3.2, 24);
}

// Polished grey with waves of light.
QImage DessineVagues(int echelle) {
  const Teintes t{QColor(206, 212, 213), QColor(158, 165, 168),      QColor(226, 231, 232),
                  QColor(118, 126, 130), QColor(236, 241, 243, 150), QColor(92, 100, 104, 100)};
  return DessineSkin(
      403, 277, echelle, t, 12,
      [&](QPainter& p) {
        p.setBrush(Qt::NoBrush);
        for (int i = 0; i < 26; ++i) {
          QPainterPath onde;
          const double y0 = 84 + 8.5 * i;
          onde.moveTo(-5, y0);
          for (int x = 0; x <= 410; x += 5) {
            onde.lineTo(x, y0 + 15 * std::sin(x / 83.0 + i * 0.23) * std::cos(x / 191.0 - i * 0.11));
          }
          p.setPen(QPen(i % 2 == 0 ? t.Clair : t.Sombre, i % 2 == 0 ? 2.2 : 0.7));
          p.drawPath(onde);
        }
      },
      1.6, 6);
}

// Light lies on the board where captions are written over it through the pages, and what the window never shows below
// and right of it stays in the dark: so the captions can be read, and the board as a whole is as dark as it is to be.
void EclaireBois(QPainter& p) {
  p.fillRect(QRectF(0, 243, 406, 35), QColor(10, 8, 5, 250));
  p.fillRect(QRectF(398, 80, 8, 163), QColor(10, 8, 5, 250));
  p.fillRect(QRectF(0, 0, 406, 79), QColor(16, 12, 7, 150));
  p.fillRect(QRectF(0, 80, 398, 163), QColor(255, 232, 190, 66));
  QRadialGradient ombre(QPointF(364, 146), 74);
  ombre.setColorAt(0, QColor(20, 14, 8, 120));
  ombre.setColorAt(0.35, QColor(20, 14, 8, 95));
  ombre.setColorAt(0.8, QColor(20, 14, 8, 18));
  ombre.setColorAt(1, QColor(20, 14, 8, 0));
  p.fillRect(QRectF(270, 80, 128, 163), ombre);
}

// Dark wood: years in rings that run through the board.
QImage DessineBois(int echelle) {
  const Teintes t{QColor(96, 84, 65), QColor(93, 81, 62),         QColor(206, 195, 168),
                  QColor(38, 31, 21), QColor(150, 134, 104, 120), QColor(30, 24, 15, 150)};
  return DessineSkin(
      406, 278, echelle, t, 13,
      [&](QPainter& p) {
        p.setBrush(Qt::NoBrush);
        for (int i = 0; i < 62; ++i) {
          QPainterPath veine;
          const double y0 = -20 + 5.2 * i + 2.5 * std::sin(i * 1.7);
          veine.moveTo(-5, y0);
          for (int x = 0; x <= 412; x += 6) {
            const double noeud = 26 * std::exp(-std::pow((x - 285) / 60.0, 2) - std::pow((y0 - 176) / 55.0, 2));
            const double sens = y0 < 176 ? -1 : 1;
            veine.lineTo(x, y0 + sens * noeud + 3.2 * std::sin(x / 71.0 + i * 0.09));
          }
          QColor c = i % 3 == 0 ? QColor(34, 26, 16) : QColor(128, 111, 82);
          c.setAlpha(30 + static_cast<int>(40 * Grain(static_cast<quint32>(i), 3, 5)));
          p.setPen(QPen(c, 0.8 + 2.2 * Grain(static_cast<quint32>(i), 4, 5)));
          p.drawPath(veine);
        }
        EclaireBois(p);
      },
      3.0, 18);
}

}  // namespace

void DessineSkins(const QString& dossier) {
  Livre(dossier, QStringLiteral("SKIN0"), QColor(184, 189, 184), 114, DessineMetal);
  Livre(dossier, QStringLiteral("SKIN1"), QColor(184, 189, 189), 125, DessineVagues);
  Livre(dossier, QStringLiteral("SKIN2"), QColor(90, 80, 63), 0, DessineBois);
}

}  // namespace vaktor::art
