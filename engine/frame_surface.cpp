// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/frame_surface.h"

#include <algorithm>

namespace vaktor {

void SurfaceImage::Pose(const ImageCamera& image) {
  if (image.EstNulle()) return;
  const QSize taille = image.Taille();
  const bool autreTaille = taille != Taille_;
  Image_ = image;
  OublieContours();
  if (autreTaille) {
    Taille_ = taille;
    if (SurTaille_) SurTaille_();
  }
  if (SurChangement_) SurChangement_();
}

void SurfaceImage::Retire() {
  Image_ = ImageCamera();
  OublieContours();
  if (SurChangement_) SurChangement_();
}

void SurfaceImage::Dessine(const Contour& contour) {
  if (Nombre_ == kContoursMax) {
    GraveContour(Contours_.front());
    std::move(Contours_.begin() + 1, Contours_.end(), Contours_.begin());
    --Nombre_;
  }
  Contours_.at(static_cast<std::size_t>(Nombre_++)) = contour;
  if (SurChangement_) SurChangement_();
}

void SurfaceImage::OublieContours() {
  Nombre_ = 0;
  Anciens_ = QImage();
}

// By hand, since nothing here paints: what a painter would make of it is held by a test of the monitor.
void SurfaceImage::GraveContour(const Contour& contour) {
  if (Anciens_.isNull()) {
    Anciens_ = QImage(Taille_, QImage::Format_ARGB32_Premultiplied);
    Anciens_.fill(Qt::transparent);
  }
  const auto [gauche, droite] = std::minmax(contour.Gauche, contour.Droite);
  const auto [haut, bas] = std::minmax(contour.Haut, contour.Bas);
  if (gauche == droite || haut == bas) return;
  const auto trace = [this](qint32 y, qint32 debut, qint32 fin) {
    auto* ligne = reinterpret_cast<QRgb*>(Anciens_.scanLine(y));
    debut = std::max(debut, 0);
    fin = std::min(fin, Taille_.width());
    if (debut < fin) std::fill(ligne + debut, ligne + fin, kCouleurContour);
  };
  for (qint32 y = std::max(haut, 0); y < std::min(bas, Taille_.height()); ++y) {
    if (y == haut || y == bas - 1) {
      trace(y, gauche, droite);
    } else {
      trace(y, gauche, gauche + 1);
      trace(y, droite - 1, droite);
    }
  }
}

}  // namespace vaktor
