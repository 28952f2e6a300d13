// SPDX-License-Identifier: GPL-3.0-or-later
// What live publishing is given of the JPEG writer.
#pragma once

#include "companions/ports/live_image.h"
#include "image/jpeg_writer.h"

namespace vaktor {

class EcrivainDuLive : public EcrivainLive {
 public:
  explicit EcrivainDuLive(EcrivainJpeg& ecrivain) : Ecrivain_(ecrivain) {}
  void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) override {
    Ecrivain_.EnregistreJPEG(image, fichier, qualite);
  }

 private:
  EcrivainJpeg& Ecrivain_;
};

}  // namespace vaktor
