// SPDX-License-Identifier: GPL-3.0-or-later
// A camera that connects again and again.
#pragma once

#include <QtGlobal>
#include <algorithm>
#include <array>

namespace vaktor {

/// Each connection costs the second before it in which nothing came and the second after it in which nothing acts, or
/// two frames of a slow camera; what is seen in between makes the picture look alive. Three connections within a minute
/// are a series, and it is over when a minute has passed without another: less often it is a network that stumbles.
/// Times are the counter of milliseconds. Owner: the analysis.
class SerieReprises {
 public:
  static constexpr int kNombre = 3;
  static constexpr quint32 kFenetreMs = 60'000;

  void Note(quint32 maintenant) {
    Moments_ = {Moments_[1], Moments_[2], maintenant};
    Notees_ = std::min(Notees_ + 1, kNombre);
    if (Notees_ == kNombre && maintenant - Moments_[0] <= kFenetreMs) EnSerie_ = true;
  }
  /// Asked at each tick: the counter wraps, and what lies further back than a minute is forgotten before that.
  bool EnSerie(quint32 maintenant) {
    if (Notees_ > 0 && maintenant - Moments_[kNombre - 1] >= kFenetreMs) Oublie();
    return EnSerie_;
  }
  void Oublie() {
    Notees_ = 0;
    EnSerie_ = false;
  }

 private:
  std::array<quint32, kNombre> Moments_{};  // of the last ones, the newest last
  int Notees_ = 0;
  bool EnSerie_ = false;
};

}  // namespace vaktor
