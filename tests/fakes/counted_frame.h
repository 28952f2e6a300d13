// SPDX-License-Identifier: GPL-3.0-or-later
// A frame of planes: its picture is made where somebody looks at it, and that is counted.
#pragma once

#include <QImage>
#include <utility>

#include "engine/camera_image.h"

namespace vaktor::faux {

class TrameComptee : public TrameDifferee {
 public:
  /// `faites`: frames whose picture was made, of all that share it.
  TrameComptee(QImage image, int& faites) : Image_(std::move(image)), Faites_(faites) {}
  QSize Taille() const override { return Image_.size(); }
  TrameBrute Echantillons(PhaseEchantillons) override { return PixelsDe(Image_); }
  const QImage& Entiere() override {
    if (!Vue_) ++Faites_;
    Vue_ = true;
    return Image_;
  }

 private:
  QImage Image_;
  int& Faites_;
  bool Vue_ = false;
};

}  // namespace vaktor::faux
