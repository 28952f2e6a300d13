// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/surface_painter.h"

#include <algorithm>

namespace vaktor {

namespace {

// Right and bottom edge excluded.
void PeintContour(QPainter& peintre, const Contour& contour) {
  const double gauche = std::min(contour.Gauche, contour.Droite);
  const double droite = std::max(contour.Gauche, contour.Droite);
  const double haut = std::min(contour.Haut, contour.Bas);
  const double bas = std::max(contour.Haut, contour.Bas);
  if (gauche == droite || haut == bas) return;
  const QColor couleur = QColor::fromRgb(kCouleurContour);
  peintre.fillRect(QRectF(gauche, haut, droite - gauche, 1), couleur);
  peintre.fillRect(QRectF(gauche, bas - 1, droite - gauche, 1), couleur);
  peintre.fillRect(QRectF(gauche, haut, 1, bas - haut), couleur);
  peintre.fillRect(QRectF(droite - 1, haut, 1, bas - haut), couleur);
}

void PeintImage(QPainter& peintre, const QImage& image, const QSize& taille) {
  if (image.isNull()) {
    peintre.fillRect(QRect(QPoint(0, 0), taille), Qt::black);
    return;
  }
  peintre.drawImage(QRectF(QPointF(0, 0), QSizeF(image.size())), image, QRectF(QPointF(0, 0), QSizeF(image.size())));
}

void PeintAnciens(QPainter& peintre, const QImage& anciens) {
  if (!anciens.isNull()) peintre.drawImage(QPointF(0, 0), anciens);
}

// Start and direction of one axis: the first source coordinate and the scale, which is negative when mirrored.
struct AxeEtire {
  double Origine;
  double Echelle;
};

AxeEtire CalculeAxe(int position, int etendue, double cible) {
  return {etendue > 0 ? double(position) : double(position) + 1.0, cible / double(etendue)};
}

}  // namespace

void CopieSurface::Prend(const SurfaceImage& surface) {
  Image = surface.Trame();
  Taille = surface.Taille();
  Anciens = surface.Anciens();
  Contours.clear();
  for (int i = 0; i < surface.NombreContours(); ++i) Contours.push_back(surface.ContourNumero(i));
}

void PeintSurface(QPainter& peintre, const CopieSurface& copie) {
  PeintImage(peintre, copie.Image.Entiere(), copie.Taille);
  PeintAnciens(peintre, copie.Anciens);
  for (const Contour& contour : copie.Contours) PeintContour(peintre, contour);
}

void PeintSurface(QPainter& peintre, const SurfaceImage& surface) {
  PeintImage(peintre, surface.Image(), surface.Taille());
  PeintAnciens(peintre, surface.Anciens());
  for (int i = 0; i < surface.NombreContours(); ++i) PeintContour(peintre, surface.ContourNumero(i));
}

void EtireSurface(QPainter& peintre, const QRectF& cible, const CopieSurface& surface, const QRect& source) {
  if (source.width() == 0 || source.height() == 0) return;
  const AxeEtire x = CalculeAxe(source.x(), source.width(), cible.width());
  const AxeEtire y = CalculeAxe(source.y(), source.height(), cible.height());
  peintre.save();
  peintre.setClipRect(cible);
  peintre.fillRect(cible, Qt::black);
  peintre.translate(cible.topLeft());
  peintre.scale(x.Echelle, y.Echelle);
  peintre.translate(-x.Origine, -y.Origine);
  PeintSurface(peintre, surface);
  peintre.restore();
}

}  // namespace vaktor
