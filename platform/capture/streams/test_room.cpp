// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/test_picture.h"

#include <QLinearGradient>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

namespace vaktor {
namespace {

constexpr int kLargeur = 640;
constexpr int kHauteur = 480;
constexpr int kSol = 338;  // where the wall meets the floor

void Remplit(QPainter& p, const QRectF& cadre, const QColor& haut, const QColor& bas, double arrondi = 0) {
  QLinearGradient degrade(cadre.topLeft(), cadre.bottomLeft());
  degrade.setColorAt(0, haut);
  degrade.setColorAt(1, bas);
  p.setPen(Qt::NoPen);
  p.setBrush(degrade);
  p.drawRoundedRect(cadre, arrondi, arrondi);
}

void DessineMurs(QPainter& p) {
  Remplit(p, QRectF(0, 0, kLargeur, kSol), QColor(150, 116, 92), QColor(186, 146, 112));
  p.setPen(QPen(QColor(160, 122, 94, 90), 1));
  for (int x = 16; x < kLargeur; x += 32) p.drawLine(x, 0, x, kSol);
  Remplit(p, QRectF(0, kSol - 12, kLargeur, 12), QColor(112, 82, 62), QColor(84, 60, 46));
}

void DessineSol(QPainter& p) {
  Remplit(p, QRectF(0, kSol, kLargeur, kHauteur - kSol), QColor(112, 74, 46), QColor(150, 102, 64));
  // Planks run towards the eye.
  p.setPen(QPen(QColor(76, 48, 30, 150), 1.2));
  for (int i = -14; i <= 14; ++i) p.drawLine(QPointF(320 + i * 40, kSol), QPointF(320 + i * 96, kHauteur));
  p.setPen(QPen(QColor(76, 48, 30, 110), 1));
  for (const double y : {352.0, 372.0, 398.0, 432.0}) p.drawLine(QPointF(0, y), QPointF(kLargeur, y));
}

void DessineFenetre(QPainter& p) {
  const QRectF cadre(62, 60, 150, 170);
  Remplit(p, cadre.adjusted(-9, -9, 9, 9), QColor(126, 96, 74), QColor(104, 78, 60), 3);
  QLinearGradient ciel(cadre.topLeft(), cadre.bottomLeft());
  ciel.setColorAt(0, QColor(44, 42, 84));
  ciel.setColorAt(0.55, QColor(140, 78, 92));
  ciel.setColorAt(0.8, QColor(222, 130, 76));
  ciel.setColorAt(1, QColor(80, 52, 50));
  p.fillRect(cadre, ciel);
  p.setBrush(QColor(34, 30, 42));
  p.drawPolygon(QPolygonF({QPointF(62, 230), QPointF(62, 200), QPointF(96, 186), QPointF(120, 204), QPointF(156, 178),
                           QPointF(190, 202), QPointF(212, 192), QPointF(212, 230)}));
  p.setPen(QPen(QColor(116, 88, 68), 6));
  p.drawLine(QPointF(137, 60), QPointF(137, 230));
  p.drawLine(QPointF(62, 138), QPointF(212, 138));
  for (const double x : {30.0, 206.0}) {
    Remplit(p, QRectF(x, 40, 38, 232), QColor(128, 50, 44), QColor(96, 36, 34), 4);
    p.setPen(QPen(QColor(74, 26, 26, 150), 2));
    for (int pli = 1; pli < 4; ++pli) p.drawLine(QPointF(x + pli * 9.5, 46), QPointF(x + pli * 9.5, 268));
  }
  p.setPen(QPen(QColor(66, 46, 34), 5, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(22, 40), QPointF(252, 40));
}

void DessineTableau(QPainter& p) {
  Remplit(p, QRectF(318, 74, 112, 84), QColor(72, 48, 32), QColor(54, 36, 24), 2);
  Remplit(p, QRectF(326, 82, 96, 68), QColor(206, 172, 118), QColor(170, 128, 82));
  p.setBrush(QColor(96, 104, 62));
  p.drawEllipse(QRectF(316, 118, 84, 60).intersected(QRectF(326, 118, 74, 32)));
  p.setBrush(QColor(70, 84, 52));
  p.drawPolygon(QPolygonF({QPointF(366, 150), QPointF(398, 108), QPointF(422, 132), QPointF(422, 150)}));
  p.setBrush(QColor(232, 208, 128));
  p.drawEllipse(QPointF(352, 102), 9, 9);
}

void DessineEtagere(QPainter& p) {
  Remplit(p, QRectF(540, 116, 92, 224), QColor(92, 62, 40), QColor(74, 48, 30), 2);
  const QColor dos[] = {QColor(150, 60, 48), QColor(72, 92, 70), QColor(184, 140, 70), QColor(60, 66, 84),
                        QColor(120, 84, 60)};
  for (int rang = 0; rang < 4; ++rang) {
    const double bas = 166 + rang * 54;
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(46, 30, 20));
    p.drawRect(QRectF(547, bas - 42, 78, 42));
    double x = 550;
    for (int livre = 0; x < 612; ++livre) {
      const double largeur = 6 + (livre * 7 + rang * 5) % 6;
      const double hauteur = 26 + (livre * 11 + rang * 7) % 13;
      p.setBrush(dos[(livre * 3 + rang) % 5]);
      p.drawRect(QRectF(x, bas - hauteur, largeur, hauteur));
      x += largeur + ((livre + rang) % 4 == 3 ? 7 : 1);
    }
  }
}

void DessineCanape(QPainter& p) {
  Remplit(p, QRectF(262, 226, 236, 92), QColor(84, 104, 82), QColor(62, 80, 64), 18);
  Remplit(p, QRectF(284, 268, 96, 58), QColor(104, 126, 98), QColor(80, 100, 80), 10);
  Remplit(p, QRectF(380, 268, 96, 58), QColor(104, 126, 98), QColor(80, 100, 80), 10);
  Remplit(p, QRectF(272, 314, 216, 34), QColor(72, 92, 72), QColor(52, 68, 54), 8);
  for (const double x : {246.0, 474.0}) Remplit(p, QRectF(x, 254, 40, 94), QColor(92, 114, 90), QColor(60, 78, 62), 16);
  p.setBrush(QColor(44, 30, 22));
  for (const double x : {262.0, 488.0}) p.drawRect(QRectF(x, 346, 9, 12));
  p.save();
  p.translate(306, 262);
  p.rotate(-14);
  Remplit(p, QRectF(-22, -22, 46, 44), QColor(206, 132, 62), QColor(172, 98, 44), 8);
  p.restore();
}

void DessineTapis(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(126, 58, 46));
  p.drawEllipse(QRectF(190, 372, 330, 84));
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(QColor(196, 150, 92), 3));
  p.drawEllipse(QRectF(206, 379, 298, 70));
  p.setPen(QPen(QColor(160, 96, 62), 2));
  p.drawEllipse(QRectF(232, 388, 246, 52));
}

void DessinePlante(QPainter& p) {
  p.setPen(Qt::NoPen);
  for (int i = -4; i <= 4; ++i) {
    p.save();
    p.translate(252, 304);
    p.rotate(i * 17.0);
    p.setBrush(i % 2 == 0 ? QColor(58, 92, 50) : QColor(74, 112, 60));
    p.drawEllipse(QRectF(-7, -82 + std::abs(i) * 6, 14, 78));
    p.restore();
  }
  Remplit(p, QRectF(230, 298, 44, 44), QColor(168, 96, 62), QColor(126, 68, 44), 6);
}

void DessineLampe(QPainter& p) {
  p.setPen(QPen(QColor(48, 36, 28), 5));
  p.drawLine(QPointF(516, 172), QPointF(516, 342));
  Remplit(p, QRectF(494, 340, 44, 8), QColor(58, 44, 34), QColor(40, 30, 24), 4);
  QLinearGradient abatJour(0, 122, 0, 176);
  abatJour.setColorAt(0, QColor(236, 196, 116));
  abatJour.setColorAt(1, QColor(246, 220, 148));
  p.setPen(Qt::NoPen);
  p.setBrush(abatJour);
  p.drawPolygon(QPolygonF({QPointF(498, 122), QPointF(534, 122), QPointF(552, 176), QPointF(480, 176)}));
}

void DessineLumiere(QPainter& p) {
  QRadialGradient halo(QPointF(516, 170), 270);
  halo.setColorAt(0, QColor(255, 206, 110, 120));
  halo.setColorAt(0.35, QColor(255, 190, 100, 52));
  halo.setColorAt(1, QColor(255, 180, 90, 0));
  p.fillRect(QRect(0, 0, kLargeur, kHauteur), halo);
  QRadialGradient bords(QPointF(330, 230), 430);
  bords.setColorAt(0.5, QColor(10, 8, 12, 0));
  bords.setColorAt(1, QColor(10, 8, 12, 130));
  p.fillRect(QRect(0, 0, kLargeur, kHauteur), bords);
}

void BorneCanaux(QImage& image) {
  static constexpr int kMarge = 4;
  for (int y = 0; y < image.height(); ++y) {
    auto* ligne = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const auto borne = [](int canal) { return std::clamp(canal, kMarge, 255 - kMarge); };
      ligne[x] = qRgb(borne(qRed(ligne[x])), borne(qGreen(ligne[x])), borne(qBlue(ligne[x])));
    }
  }
}

QPointF Pointe(const QPointF& de, double angle, double longueur) {
  return de + QPointF(std::sin(angle) * longueur, std::cos(angle) * longueur);
}

// A limb of two parts; returns its end.
QPointF DessineMembre(QPainter& p, const QPointF& attache, double angle, double pli, double longueur,
                      const QPen& crayon) {
  const QPointF milieu = Pointe(attache, angle, longueur);
  const QPointF bout = Pointe(milieu, angle + pli, longueur);
  p.setPen(crayon);
  p.setBrush(Qt::NoBrush);
  p.drawPolyline(QPolygonF({attache, milieu, bout}));
  return bout;
}

QPen Crayon(const QColor& couleur, double largeur) {
  return {couleur, largeur, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void DessineJambe(QPainter& p, const QPointF& hanche, double balance, const QColor& couleur) {
  // The leg behind bends its knee while it is brought forward.
  const double pli = -0.25 - 0.35 * std::max(0.0, -balance);
  const QPointF pied = DessineMembre(p, hanche, 0.5 * balance, pli, 62, Crayon(couleur, 25));
  p.setPen(Crayon(QColor(30, 24, 24), 14));
  p.drawLine(pied + QPointF(0, 8), pied + QPointF(15, 9));
}

void DessineBras(QPainter& p, const QPointF& epaule, double balance, const QColor& manche) {
  const QPointF main = DessineMembre(p, epaule, 0.55 * balance, 0.35, 42, Crayon(manche, 19));
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(206, 154, 122));
  p.drawEllipse(main + QPointF(1, 4), 9, 9);
}

void DessineBuste(QPainter& p, const QPointF& hanche) {
  const QRectF buste(hanche.x() - 29, hanche.y() - 112, 58, 120);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(206, 222, 248));
  p.drawRoundedRect(buste, 24, 22);
  // Stripes: the inside of the shirt moves too, not its border only.
  p.setBrush(QColor(84, 120, 200));
  for (int i = 0; i < 4; ++i) p.drawRect(QRectF(buste.x() + 5 + i * 14, buste.y() + 16, 5, 96));
}

void DessineTete(QPainter& p, const QPointF& hanche) {
  const QPointF tete = hanche + QPointF(4, -142);
  p.setPen(Crayon(QColor(206, 154, 122), 17));
  p.drawLine(tete + QPointF(-2, 14), tete + QPointF(-4, 34));
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(214, 164, 132));
  p.drawEllipse(tete, 22, 27);
  p.drawEllipse(tete + QPointF(22, 4), 5, 5);
  p.setBrush(QColor(48, 32, 26));
  p.drawChord(QRectF(tete.x() - 25, tete.y() - 30, 48, 50), 20 * 16, 200 * 16);
  p.setBrush(QColor(40, 30, 30));
  p.drawEllipse(tete + QPointF(12, -1), 2.5, 3);
}

}  // namespace

QImage DessinePiece() {
  QImage image(kLargeur, kHauteur, QImage::Format_RGB32);
  image.fill(Qt::black);
  {
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    DessineMurs(p);
    DessineSol(p);
    DessineFenetre(p);
    DessineTableau(p);
    DessineEtagere(p);
    DessineTapis(p);
    DessineCanape(p);
    DessinePlante(p);
    DessineLampe(p);
    DessineLumiere(p);
  }
  BorneCanaux(image);
  return image;
}

void DessinePassant(QPainter& peintre, double x, double y, double phase, int sens) {
  constexpr double kDeuxPi = 6.283185307179586;
  const double balance = std::sin(phase * kDeuxPi);
  peintre.save();
  peintre.setRenderHint(QPainter::Antialiasing);
  peintre.translate(x, y);
  peintre.scale(sens, 1);
  peintre.setPen(Qt::NoPen);
  peintre.setBrush(QColor(24, 14, 10, 90));
  peintre.drawEllipse(QPointF(0, 6), 62, 10);
  // The body is highest when one leg stands straight below it.
  const QPointF hanche(0, -128 + 5 * std::abs(balance));
  const QPointF epaule = hanche + QPointF(0, -92);
  DessineBras(peintre, epaule, -balance, QColor(170, 190, 226));
  DessineJambe(peintre, hanche, -balance, QColor(36, 40, 62));
  DessineJambe(peintre, hanche, balance, QColor(48, 54, 84));
  DessineBuste(peintre, hanche);
  DessineTete(peintre, hanche);
  DessineBras(peintre, epaule, balance, QColor(224, 234, 250));
  peintre.restore();
}

QRect CadrePassant(double x, double y) {
  return QRect(qFloor(x) - 110, qFloor(y) - 310, 220, 332).intersected(QRect(0, 0, kLargeur, kHauteur));
}

}  // namespace vaktor
