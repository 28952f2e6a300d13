// SPDX-License-Identifier: GPL-3.0-or-later
// The time of a live image: white figures on a fixed dark plate, readable on any picture.
#pragma once

#include "companions/ports/live_image.h"

namespace vaktor {

/// Needs a QGuiApplication, for the font.
class DessinTimbre : public TimbreHeure {
 public:
  DessinTimbre();
  QImage DessineTimbre(const QString& texte) override;

 private:
  QImage Fond_;
};

/// Plain copy of the stamp onto a frame: 66 by 18 pixels from its origin to (3, 3); what lies outside the frame is cut.
void PoseTimbre(QImage& image, const QImage& timbre);

}  // namespace vaktor
