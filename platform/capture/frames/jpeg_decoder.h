// SPDX-License-Identifier: GPL-3.0-or-later
// Frames of cameras that give JPEG pictures, decoded by TurboJPEG straight into the memory where they stay.
#pragma once

#include <gst/video/video.h>

#include <QImage>
#include <QSize>
#include <array>
#include <span>

namespace vaktor {

/// One thread at a time. A decoder lives as long as its stream: it learns what is normal for this camera.
class DecodeurJpeg {
 public:
  DecodeurJpeg();
  ~DecodeurJpeg();
  DecodeurJpeg(const DecodeurJpeg&) = delete;
  DecodeurJpeg& operator=(const DecodeurJpeg&) = delete;

  /// Size that the header tells; empty when there is no header or it names one with EstDemesuree (fitted_size.h).
  QSize Taille(std::span<const quint8> jpeg);
  /// Whether it was for that reason that Taille last told none.
  bool EtaitTropGrande() const { return TropGrande_; }
  /// Into `image` of just that size, Format_RGB32, nobody else holding it: bytes B, G, R, 0xff. False for a damaged
  /// picture: half a frame would look like movement. Filling bytes between the parts of a picture are no damage in
  /// themselves, but the sign of it: they pass only when the camera has given them in every one of 10 frames.
  bool Decode(std::span<const quint8> jpeg, QImage& image);

  /// The planes that a picture of brightness and colour is stored in, full range of BT.601 (JFIF). A plane can be wider
  /// and higher than the picture asks for: the last pair of columns or rows is always whole.
  struct Plans {
    struct Plan {
      int Pas = 0;  ///< bytes of a row
      int Lignes = 0;
    };
    GstVideoFormat Format = GST_VIDEO_FORMAT_UNKNOWN;  ///< I420, Y42B or Y444
    std::array<Plan, 3> Plan{};
  };
  /// Of the picture whose header Taille has just read; of no format where the picture is stored in some other way, and
  /// only Decode makes something of it.
  const Plans& PlansDeLImage() const { return Plans_; }
  /// The same picture as Decode, before the conversion to pixels: into planes of just that form. Fails as Decode does.
  bool DecodePlans(std::span<const quint8> jpeg, std::array<quint8*, 3> plans);

 private:
  QSize LitEntete(std::span<const quint8> jpeg);
  void Renouvelle();
  bool Juge(int resultat);
  bool EstHabitude();
  void FixePlans(QSize taille, int sousEchantillon, int couleurs);

  void* Turbo_;
  int RemplissagesDeSuite_ = 0;
  bool TropGrande_ = false;
  Plans Plans_;
};

}  // namespace vaktor
