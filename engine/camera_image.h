// SPDX-License-Identifier: GPL-3.0-or-later
// A frame as the capture driver hands it over: a picture, or something that a picture is made of once somebody looks.
#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <memory>

#include "engine/raw_frame.h"
#include "engine/sampling.h"

namespace vaktor {

/// A frame that is still in the form it was decoded to. The comparison reads one pixel in nine of it, and most
/// frames are seen by nobody else: its pixels are made when they are asked for, and both ways give the same bytes.
/// User-interface thread; its last holder may let go of it on any thread.
class TrameDifferee {
 public:
  TrameDifferee() = default;
  virtual ~TrameDifferee() = default;
  TrameDifferee(const TrameDifferee&) = delete;
  TrameDifferee& operator=(const TrameDifferee&) = delete;

  /// Never empty.
  virtual QSize Taille() const = 0;
  /// The pixels of this phase at the least. Valid as long as the frame is held and no others are asked for; Bits is
  /// null when there is no memory. A driver may have these of the next frames ready beforehand.
  virtual TrameBrute Echantillons(PhaseEchantillons phase) = 0;
  /// All rows, Format_RGB32; null when there is no memory. Made when it is asked for, and valid until another frame's
  /// is asked for, which may take its memory: it is then made again. Who needs it longer takes a copy of the QImage,
  /// which stays as it is.
  virtual const QImage& Entiere() = 0;
  /// The pixels of `part`, which lies within the frame, four bytes each as in Format_RGB32: the first to `vers`, a row
  /// `pas` bytes behind the one before. For who looks at a part only, or has memory for the pixels already: the picture
  /// is not made for it. False where this cannot be done, with anything written; Entiere() serves then.
  virtual bool EcritPart(const QRect& /*part*/, uchar* /*vers*/, qsizetype /*pas*/) { return false; }
};

/// Of a null image: Bits is null.
inline TrameBrute PixelsDe(const QImage& image) {
  return {image.constBits(), image.bytesPerLine(), image.width(), image.height()};
}

/// A value: copies share the frame. Null while there is none.
class ImageCamera {
 public:
  ImageCamera() = default;
  ImageCamera(const QImage& image) : Image_(image) {}  // NOLINT(google-explicit-constructor): a picture is a frame
  explicit ImageCamera(std::shared_ptr<TrameDifferee> trame) : Trame_(std::move(trame)) {}

  bool EstNulle() const { return Trame_ == nullptr && Image_.isNull(); }
  QSize Taille() const { return Trame_ != nullptr ? Trame_->Taille() : Image_.size(); }
  /// The picture, made now if it has to be.
  const QImage& Entiere() const { return Trame_ != nullptr ? Trame_->Entiere() : Image_; }
  /// TrameDifferee::EcritPart; a picture is there already, so it is false.
  bool EcritPart(const QRect& part, uchar* vers, qsizetype pas) const {
    return Trame_ != nullptr && Trame_->EcritPart(part, vers, pas);
  }
  /// TrameDifferee::Echantillons; a picture has all its pixels.
  TrameBrute Echantillons(PhaseEchantillons phase) const {
    return Trame_ != nullptr ? Trame_->Echantillons(phase) : PixelsDe(Image_);
  }

 private:
  QImage Image_;
  std::shared_ptr<TrameDifferee> Trame_;
};

}  // namespace vaktor
