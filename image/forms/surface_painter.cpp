// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/surface_painter.h"

#include <QPaintEngine>
#include <algorithm>
#include <cmath>

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

// The window's memory that the painter paints into, where a pixel of it is one of the widget: null elsewhere, as on a
// screen of high density. `origine`: where in it the widget begins. A picture that is painted on is shared with nobody.
QImage* MemoireSous(QPainter& peintre, QPoint& origine) {
  const QTransform place = peintre.deviceTransform();
  const QPaintEngine* moteur = peintre.paintEngine();
  if (place.type() > QTransform::TxTranslate || moteur == nullptr || moteur->type() != QPaintEngine::Raster)
    return nullptr;
  QPaintDevice* sous = moteur->paintDevice();
  if (sous == nullptr || sous->devType() != QInternal::Image) return nullptr;
  auto* memoire = static_cast<QImage*>(sous);
  const bool memesPixels =
      memoire->format() == QImage::Format_RGB32 || memoire->format() == QImage::Format_ARGB32_Premultiplied;
  origine = {qRound(place.dx()), qRound(place.dy())};
  const bool entiers = origine.x() == place.dx() && origine.y() == place.dy();
  return memesPixels && entiers && !peintre.hasClipping() ? memoire : nullptr;
}

// A picture of its own would be written, read and written once more: of a large one that is most of what it costs to
// show it. `ou`: what is painted, in pixels of the frame.
bool EcritDroit(QPainter& peintre, const ImageCamera& trame, const QRegion& ou) {
  QPoint origine;
  QImage* memoire = MemoireSous(peintre, origine);
  if (memoire == nullptr || trame.EstNulle()) return false;
  for (const QRect& morceau : ou) {
    const QRect part = morceau & QRect(QPoint(0, 0), trame.Taille());
    const QRect la = part.translated(origine);
    if (part.isEmpty()) continue;
    if (!memoire->rect().contains(la)) return false;
    uchar* vers = memoire->scanLine(la.y()) + qsizetype{4} * la.x();
    if (!trame.EcritPart(part, vers, memoire->bytesPerLine())) return false;
  }
  return true;
}

void PeintAnciens(QPainter& peintre, const QImage& anciens) {
  if (!anciens.isNull()) peintre.drawImage(QPointF(0, 0), anciens);
}

void PeintTraits(QPainter& peintre, const CopieSurface& copie) {
  PeintAnciens(peintre, copie.Anciens);
  for (const Contour& contour : copie.Contours) PeintContour(peintre, contour);
}

// Start and direction of one axis: the first source coordinate and the scale, which is negative when mirrored.
struct AxeEtire {
  double Origine;
  double Echelle;
};

AxeEtire CalculeAxe(int position, int etendue, double cible) {
  return {etendue > 0 ? double(position) : double(position) + 1.0, cible / double(etendue)};
}

// The columns of the frame that are stretched, and one more on each side, since on some screens the edges of the view
// lie within a pixel. They begin where a colour does: half of them share one with the next.
QRect Colonnes(const QRect& source, const QSize& taille) {
  const int gauche = source.width() > 0 ? source.x() : source.x() + source.width() + 1;
  QRect colonnes = QRect(gauche - 1, 0, std::abs(source.width()) + 2, taille.height()) & QRect(QPoint(0, 0), taille);
  colonnes.setLeft(colonnes.left() / 2 * 2);
  return colonnes;
}

// Of a large frame most rows fall between those of a small view: only the ones that it shows are made, one for each of
// its own. `lignes` is memory for them. False where the frame has its pixels already, or cannot give them by rows.
bool EtireLignes(QPainter& peintre, int hauteur, const ImageCamera& trame, const QRect& colonnes, const AxeEtire& x,
                 const AxeEtire& y, QImage& lignes) {
  if (colonnes.isEmpty()) return true;
  const int nombre = static_cast<int>(std::ceil(hauteur * peintre.device()->devicePixelRatioF()));
  const double pas = double(hauteur) / nombre;
  // One row follows the other without a gap: at the edges the painter may round to what lies behind the end of a row.
  const qsizetype octets = qsizetype{4} * colonnes.width();
  if (lignes.sizeInBytes() < octets * nombre) lignes = QImage(colonnes.width(), nombre, QImage::Format_RGB32);
  if (lignes.isNull()) return false;
  for (int i = 0; i < nombre; ++i) {
    uchar* vers = lignes.bits() + i * octets;
    const double ligne = std::floor(y.Origine + (i + 0.5) * pas / y.Echelle);
    if (ligne < 0 || ligne >= colonnes.height()) {
      std::fill_n(reinterpret_cast<QRgb*>(vers), colonnes.width(), qRgb(0, 0, 0));
      continue;
    }
    const QRect part(colonnes.left(), static_cast<int>(ligne), colonnes.width(), 1);
    if (!trame.EcritPart(part, vers, octets)) return false;
  }
  const QImage vue(lignes.constBits(), colonnes.width(), nombre, octets, QImage::Format_RGB32);
  peintre.save();
  peintre.scale(x.Echelle, pas);
  peintre.translate(-x.Origine, 0);
  peintre.drawImage(QRectF(QPointF(colonnes.left(), 0), QSizeF(vue.size())), vue, QRectF(vue.rect()));
  peintre.restore();
  return true;
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
  PeintTraits(peintre, copie);
}

void PeintSurface(QPainter& peintre, const SurfaceImage& surface, const QRegion& ou) {
  if (!EcritDroit(peintre, surface.Trame(), ou)) PeintImage(peintre, surface.Image(), surface.Taille());
  PeintAnciens(peintre, surface.Anciens());
  for (int i = 0; i < surface.NombreContours(); ++i) PeintContour(peintre, surface.ContourNumero(i));
}

void EtireSurface(QPainter& peintre, const QRect& cible, const CopieSurface& surface, const QRect& source,
                  QImage& lignes) {
  if (source.width() == 0 || source.height() == 0) return;
  const AxeEtire x = CalculeAxe(source.x(), source.width(), cible.width());
  const AxeEtire y = CalculeAxe(source.y(), source.height(), cible.height());
  peintre.save();
  peintre.setClipRect(cible);
  peintre.fillRect(cible, Qt::black);
  peintre.translate(cible.topLeft());
  const bool parLignes =
      EtireLignes(peintre, cible.height(), surface.Image, Colonnes(source, surface.Taille), x, y, lignes);
  peintre.scale(x.Echelle, y.Echelle);
  peintre.translate(-x.Origine, -y.Origine);
  if (!parLignes) PeintImage(peintre, surface.Image.Entiere(), surface.Taille);
  PeintTraits(peintre, surface);
  peintre.restore();
}

}  // namespace vaktor
