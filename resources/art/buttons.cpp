// SPDX-License-Identifier: GPL-3.0-or-later
// The faces of the push buttons: at rest, under the pointer, pressed. The mean colours of rest and hover lie close
// together, so hover is told by its light: a bright rim and a glow from below instead of a shine from above.
#include <QLinearGradient>
#include <QRadialGradient>

#include "canvas.h"
#include "pieces.h"

namespace vaktor::art {
namespace {

constexpr int kLargeur = 72;
constexpr int kHauteur = 16;
enum class Face { kRepos, kSurvol, kEnfoncee };

void DessineFace(QPainter& p, Face face, const QColor& ton) {
  // The corners outside the rounded rim: between the light skins and the dark one, so that they stand out on none.
  p.fillRect(QRectF(0, 0, kLargeur, kHauteur), ton.darker(128));
  const QRectF corps(0.5, 0.5, kLargeur - 1, kHauteur - 1);
  QLinearGradient g(0, 1, 0, kHauteur - 1);
  switch (face) {
    case Face::kRepos:
      g.setColorAt(0, ton.lighter(115));
      g.setColorAt(0.48, ton.lighter(106));
      g.setColorAt(0.52, ton.darker(104));
      g.setColorAt(1, ton.darker(112));
      break;
    case Face::kSurvol:
      g.setColorAt(0, ton.darker(108));
      g.setColorAt(0.45, ton);
      g.setColorAt(1, ton.lighter(117));
      break;
    case Face::kEnfoncee:
      g.setColorAt(0, ton.darker(122));
      g.setColorAt(0.3, ton.darker(104));
      g.setColorAt(1, ton.lighter(104));
      break;
  }
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawRoundedRect(corps.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
  p.setBrush(Qt::NoBrush);
  if (face == Face::kSurvol) {
    p.setPen(QPen(QColor(255, 250, 232, 235), 1));
    p.drawRoundedRect(corps.adjusted(1, 1, -1, -1), 1.7, 1.7);
  } else if (face == Face::kRepos) {
    p.setPen(QPen(QColor(255, 255, 255, 130), 1));
    p.drawLine(QPointF(3.5, 1.5), QPointF(kLargeur - 3.5, 1.5));
  } else {
    p.setPen(QPen(QColor(0, 0, 0, 60), 1));
    p.drawLine(QPointF(3, 1.5), QPointF(kLargeur - 3, 1.5));
  }
  p.setPen(QPen(ton.darker(185), 1));
  p.drawRoundedRect(corps, 2.4, 2.4);
}

void Livre(const QString& dossier, const QString& nom, Face face, const QColor& moyenne) {
  for (const int echelle : {1, 2}) {
    QImage image = Dessine(kLargeur, kHauteur, echelle, [&](QPainter& p) { DessineFace(p, face, moyenne); });
    AjusteMoyenne(image, moyenne);
    if (echelle == 1) image = ReduitPalette(image, 256);
    Enregistre(image, dossier + QStringLiteral("/%1x").arg(echelle), nom);
  }
}

}  // namespace

void DessineBoutons(const QString& dossier) {
  Livre(dossier, QStringLiteral("PictBlue0"), Face::kRepos, QColor(163, 163, 204));
  Livre(dossier, QStringLiteral("PictBlue1"), Face::kSurvol, QColor(161, 161, 202));
  Livre(dossier, QStringLiteral("PictBlue2"), Face::kEnfoncee, QColor(188, 188, 235));
  Livre(dossier, QStringLiteral("PictGrey0"), Face::kRepos, QColor(212, 212, 212));
  Livre(dossier, QStringLiteral("PictGrey1"), Face::kSurvol, QColor(210, 210, 210));
  Livre(dossier, QStringLiteral("PictGrey2"), Face::kEnfoncee, QColor(204, 204, 204));
}

}  // namespace vaktor::art
