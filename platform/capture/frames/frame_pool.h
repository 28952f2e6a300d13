// Images for the frames, used again and again: in a steady state no frame costs an allocation.
#pragma once

#include <QImage>
#include <QSize>
#include <vector>

namespace vaktor {

/// One thread at a time (the one that makes the frames). The images handed out may be held and released anywhere.
class ReserveImages {
 public:
  /// An image of this size, Format_RGB32, whose pixels nobody else holds; its content is whatever was there. Null when
  /// there is no memory for it. The caller fills it at once (its first write must not find a second holder) and may
  /// then share it; it comes back by itself when the last holder lets go.
  QImage* Prend(QSize taille);

  size_t Nombre() const { return Images_.size(); }

 private:
  std::vector<QImage> Images_;
  QImage HorsReserve_;
};

}  // namespace vaktor
