// Frames of cameras that give JPEG pictures, decoded by TurboJPEG straight into the picture's memory.
#pragma once

#include <QImage>
#include <QSize>
#include <span>

namespace vaktor {

/// One thread at a time. A decoder lives as long as its stream: it learns what is normal for this camera.
class DecodeurJpeg {
 public:
  DecodeurJpeg();
  ~DecodeurJpeg();
  DecodeurJpeg(const DecodeurJpeg&) = delete;
  DecodeurJpeg& operator=(const DecodeurJpeg&) = delete;

  /// Size that the header tells; empty when there is no header or it names a picture of more than 64 million pixels.
  QSize Taille(std::span<const quint8> jpeg);
  /// Into `image` of just that size, Format_RGB32, nobody else holding it: bytes B, G, R, 0xff. False for a damaged
  /// picture: half a frame would look like movement. Filling bytes between the parts of a picture are no damage in
  /// themselves, but the sign of it: they pass only when the camera has given them in every one of 10 frames.
  bool Decode(std::span<const quint8> jpeg, QImage& image);

 private:
  QSize LitEntete(std::span<const quint8> jpeg);
  void Renouvelle();
  bool EstHabitude();

  void* Turbo_;
  int RemplissagesDeSuite_ = 0;
};

}  // namespace vaktor
