// SPDX-License-Identifier: GPL-3.0-or-later
// Photos that are lost on their way to the disk when a test says so.
#pragma once

#include <QList>

#include "image/ports/flush_losses.h"

namespace vaktor::faux {

class PertesFausses : public PertesVidage {
 public:
  QList<PerteVidage> AVenir;  ///< those that are told, in order

  std::optional<PerteVidage> PrendPerte() override {
    if (AVenir.isEmpty()) return std::nullopt;
    return AVenir.takeFirst();
  }
};

}  // namespace vaktor::faux
