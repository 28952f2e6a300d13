// SPDX-License-Identifier: GPL-3.0-or-later
// The samples of the frame before. Allocated once for the whole run and never cleared, not even when the camera stops:
// a new start compares with the last samples of the run before.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

#include "engine/comparison/frame_comparison.h"

namespace vaktor {

/// Samples go by their rank in the scan, whatever their place in the picture: when the zone changes, unrelated points
/// are compared once, and an armed system takes that for motion. That is wanted.
///
/// Only the entries that the running index comes to are ever used: kEchantillonsMax of them. They alone are kept here,
/// side by side; the rank of a sample is (index - 1) / kPasEchantillon.
class ImagePrecedente {
 public:
  ImagePrecedente() {
    if (!Couleurs_) throw std::bad_alloc();
  }

  TableEchantillons Table() { return {Couleurs_.get(), kEchantillonsMax}; }
  /// The rank of the next sample; kEchantillonsMax once the index stands past the end.
  qint32 Rang() const { return (IndexImage_ - 1) / kPasEchantillon; }
  void Avance(qint32 echantillons) { IndexImage_ += kPasEchantillon * echantillons; }
  void Recommence() { IndexImage_ = 1; }

 private:
  struct Rendeur {
    void operator()(qint32* entrees) const { std::free(entrees); }
  };
  // Zeroes of the system's own: what no sample is ever written to never takes memory. A picture of 640x480 reaches a
  // tenth of the table.
  static qint32* Prend() {
    return static_cast<qint32*>(std::calloc(std::size_t{kEchantillonsMax} + TableEchantillons::kMarge, sizeof(qint32)));
  }

  std::unique_ptr<qint32[], Rendeur> Couleurs_{Prend()};
  qint32 IndexImage_ = 1;
};

}  // namespace vaktor
