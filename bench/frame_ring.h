// SPDX-License-Identifier: GPL-3.0-or-later
// Frames to measure with: a ring of pictures far larger than the last cache, so that each frame comes from memory as a
// camera's does, or two pictures in turn that stay in the cache as far as they fit.
#pragma once

#include <cstddef>
#include <memory>

#include "engine/comparison/frame_comparison.h"

namespace vaktor {

enum class SujetTrames {
  kImmobile,  ///< the same picture again and again
  kBruit,     ///< noise of a sensor: about one sample in fifty changes
  kTout       ///< every sample changes
};

class AnneauTrames {
 public:
  AnneauTrames(qint32 largeur, qint32 hauteur, SujetTrames sujet, bool enCache);

  TrameBrute Suivante();
  qint32 Nombre() const { return Nombre_; }
  double Mebioctets() const;

 private:
  struct Liberation {
    void operator()(uchar* bloc) const;
  };
  void Peins(qint32 numero, SujetTrames sujet);

  qint32 Largeur_, Hauteur_;
  std::size_t OctetsTrame_;
  qint32 Nombre_;
  qint32 Prochaine_ = 0;
  std::unique_ptr<uchar, Liberation> Memoire_;
};

}  // namespace vaktor
