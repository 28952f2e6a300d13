// The samples of the frame before. Allocated once for the whole run and never cleared, not even when the camera stops:
// a new start compares with the last samples of the run before.
#pragma once

#include <vector>

#include "engine/frame_comparison.h"

namespace vaktor {

/// Samples go by their rank in the scan, whatever their place in the picture: when the zone changes, unrelated points
/// are compared once, and an armed system takes that for motion. That is wanted.
///
/// The table is numbered from 1 to 1,000,000 and IndexImage moves on by the sampling step for each sample, so that only
/// the entries 1, 4, 7 and so on are ever used: kRangs of them. They alone are kept here, side by side; the rank of a
/// sample is (IndexImage - 1) / kPasEchantillon.
class ImagePrecedente {
 public:
  static constexpr qint32 kIndexMax = 1'000'000;
  static constexpr qint32 kRangs = (kIndexMax - 1) / kPasEchantillon + 1;  // 333,334

  ImagePrecedente() : Couleurs_(kRangs + TableEchantillons::kMarge, 0) {}

  TableEchantillons Table() { return {Couleurs_.data(), kRangs}; }
  qint32 IndexImage() const { return IndexImage_; }
  /// The rank of the next sample; kRangs once the index stands past the end.
  qint32 Rang() const { return (IndexImage_ - 1) / kPasEchantillon; }
  void Avance(qint32 echantillons) { IndexImage_ += kPasEchantillon * echantillons; }
  void Recommence() { IndexImage_ = 1; }

 private:
  std::vector<qint32> Couleurs_;
  qint32 IndexImage_ = 1;
};

}  // namespace vaktor
