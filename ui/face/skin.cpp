// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/face/skin.h"

#include "ui/face/art_images.h"
#include "ui/face/page_blend.h"

namespace vaktor {

namespace {

const QColor kFondUni(204, 212, 222);
const QColor kPageUnie(245, 245, 245);

}  // namespace

ImagesSkin::ImagesSkin(QSize taille, const QRect& placePages, double densite)
    : Taille_(taille), PlacePages_(placePages), Densite_(densite) {}

void ImagesSkin::Choisit(int index) {
  if (index >= 0 && index < kNombreSkins) Skin_ = index;
}

int ImagesSkin::Echelle() const { return EchelleArt(Densite_); }

QImage ImagesSkin::ChargeFond() const {
  return ChargeArtOuUni(QStringLiteral("SKIN%1").arg(Skin_), Echelle(), Taille_, kFondUni);
}

QImage ImagesSkin::ChargePage(std::size_t i) const {
  return ChargeArtOuUni(QStringLiteral("PictPage%1").arg(i), Echelle(), PlacePages_.size(), kPageUnie);
}

QImage ImagesSkin::MelangePage(std::size_t i) const {
  return vaktor::MelangePage(ChargePage(i), ChargeFond(), PlacePages_, Echelle());
}

}  // namespace vaktor
