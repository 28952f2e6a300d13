// SPDX-License-Identifier: GPL-3.0-or-later
// A picture in planes, in memory of its own that stays from one picture to the next.
#pragma once

#include <QImage>
#include <QSize>
#include <array>
#include <span>
#include <vector>

#include "platform/capture/frames/jpeg_decoder.h"
#include "platform/capture/frames/pixel_conversion.h"

namespace vaktor {

/// Makes room for so many bytes. A camera may send pictures of any size: where there is no memory for one it is dropped
/// like a damaged one, and nothing is thrown through the driver's thread, which is not ours. False then.
bool Agrandis(std::vector<quint8>& octets, std::size_t nombre);

/// One thread at a time. Where one of the calls fails there is no picture.
class PlansPropres {
 public:
  /// Decodes a JPEG picture whose header `decodeur` has just read; `taille` is what it told. False as DecodePlans, and
  /// when there is no memory.
  bool DecodeJpeg(DecodeurJpeg& decodeur, std::span<const quint8> jpeg, QSize taille);
  /// Takes a picture with EstPlanaire scaled down to this size: each pixel is made of those that lay in its place, by
  /// libyuv's filter. `plans` are not those of this object. False when there is no memory.
  bool Reduit(const PlansImage& plans, QSize taille);

  const PlansImage& Plans() const { return Plans_; }

 private:
  struct Etendue {
    int Pas = 0, Lignes = 0;
  };
  bool Pose(const PlansImage& forme, const std::array<Etendue, 3>& etendues);

  std::vector<quint8> Octets_;
  std::array<quint8*, 3> Ou_{};
  PlansImage Plans_;
};

/// Scales a picture down into one of another size, both Format_RGB32, which nobody else holds. False when it cannot.
bool ReduitImage(const QImage& de, QImage& vers);

}  // namespace vaktor
