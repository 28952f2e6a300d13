// SPDX-License-Identifier: GPL-3.0-or-later
// A frame of planes: its pixels are made where somebody looks at it, and that is counted.
#pragma once

#include <QImage>
#include <cstring>
#include <utility>

#include "engine/camera_image.h"

namespace vaktor::faux {

/// What was made of the frames that share it.
struct CompteTrames {
  int Regardees = 0;     ///< frames that somebody looked at, in any way
  int Entieres = 0;      ///< whose whole picture was made
  qsizetype Donnes = 0;  ///< pixels that went to somebody's own memory
  bool ParParts = true;  ///< they can do that
};

class TrameComptee : public TrameDifferee {
 public:
  TrameComptee(QImage image, CompteTrames& compte) : Image_(std::move(image)), Compte_(compte) {}
  QSize Taille() const override { return Image_.size(); }
  TrameBrute Echantillons(PhaseEchantillons) override { return PixelsDe(Image_); }
  const QImage& Entiere() override {
    Regarde();
    if (!std::exchange(Faite_, true)) ++Compte_.Entieres;
    return Image_;
  }
  bool EcritPart(const QRect& part, uchar* vers, qsizetype pas) override {
    if (!Image_.rect().contains(part) || part.x() % 2 != 0) return false;  // as where two pixels share a colour
    for (int y = 0; y < part.height(); ++y)
      std::memcpy(vers + y * pas, Image_.constScanLine(part.y() + y) + qsizetype{4} * part.x(),
                  static_cast<size_t>(part.width()) * 4);
    if (!Compte_.ParParts) std::memset(vers, 0x55, static_cast<size_t>(part.width()) * 4);
    Regarde();
    Compte_.Donnes += qsizetype{part.width()} * part.height();
    return Compte_.ParParts;
  }

 private:
  void Regarde() {
    if (!std::exchange(Vue_, true)) ++Compte_.Regardees;
  }

  QImage Image_;
  CompteTrames& Compte_;
  bool Vue_ = false, Faite_ = false;
};

}  // namespace vaktor::faux
