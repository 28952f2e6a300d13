// SPDX-License-Identifier: GPL-3.0-or-later
// The JPEG encoder of the program, on the TurboJPEG API of libjpeg-turbo.
#pragma once

#include <memory>

#include "image/ports/jpeg_encoder.h"

namespace vaktor {

/// Baseline JPEG with half the colour resolution in both directions (4:2:0). Pictures whose memory holds B, G, R and
/// one more byte (RGB32, ARGB32) are read where they lie; any other format is converted to RGB32 first.
/// The encoder's handle and its output memory are kept for the next call; the memory grows with the largest picture
/// seen, so photos of one camera allocate nothing here after the first. One thread at a time.
class EncodeurTurboJpeg : public EncodeurJpeg {
 public:
  EncodeurTurboJpeg();
  ~EncodeurTurboJpeg() override;
  EncodeurTurboJpeg(const EncodeurTurboJpeg&) = delete;
  EncodeurTurboJpeg& operator=(const EncodeurTurboJpeg&) = delete;

  StatutJpeg Demarre() override;
  StatutJpeg Encode(const QImage& image, quint8 qualite, QByteArrayView& octets) override;

 private:
  struct LibereMemoire {
    void operator()(unsigned char* memoire) const;
  };
  struct LiberePoignee {
    void operator()(void* poignee) const;
  };
  bool ReserveSortie(int largeur, int hauteur);

  std::unique_ptr<void, LiberePoignee> Poignee_;
  std::unique_ptr<unsigned char, LibereMemoire> Sortie_;
  unsigned long Capacite_ = 0;  // bytes of Sortie_; the type is TurboJPEG's
};

}  // namespace vaktor
