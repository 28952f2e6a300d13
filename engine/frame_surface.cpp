#include "engine/frame_surface.h"

#include <algorithm>

namespace vaktor {

void SurfaceImage::Pose(const ImageCamera& image) {
  if (image.EstNulle()) return;
  const QSize taille = image.Taille();
  const bool autreTaille = taille != Taille_;
  Image_ = image;
  Nombre_ = 0;
  if (autreTaille) {
    Taille_ = taille;
    if (SurTaille_) SurTaille_();
  }
  if (SurChangement_) SurChangement_();
}

void SurfaceImage::Retire() {
  Image_ = ImageCamera();
  Nombre_ = 0;
  if (SurChangement_) SurChangement_();
}

void SurfaceImage::Dessine(const Contour& contour) {
  if (Nombre_ == kContoursMax) {
    std::move(Contours_.begin() + 1, Contours_.end(), Contours_.begin());
    --Nombre_;
  }
  Contours_.at(static_cast<std::size_t>(Nombre_++)) = contour;
  if (SurChangement_) SurChangement_();
}

}  // namespace vaktor
