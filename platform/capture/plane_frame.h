// Frames that stay in the planes they were decoded to until somebody looks at them.
#pragma once

#include <gst/video/video.h>

#include <atomic>
#include <memory>
#include <span>
#include <vector>

#include "engine/camera_image.h"
#include "platform/capture/jpeg_decoder.h"
#include "platform/capture/pixel_conversion.h"
#include "platform/capture/sample_conversion.h"

namespace vaktor {

/// What the readers asked of the last frames, so that the next one comes ready: the driver's thread has it in the
/// nearest caches when it has just decoded it, theirs has not. Written by them, read by the driver's thread; it may be
/// late by a frame, which then costs time and nothing else.
struct HabitudesLecture {
  std::atomic<bool> Entieres = false;  ///< somebody looks at the frames
  std::atomic<qint32> Restes = 0;      ///< 3 * resteY + resteX of the pixels that are compared
};

/// Filled by the driver's thread while nobody else holds it; then it belongs to those who read it (camera_image.h).
class TramePlans : public TrameDifferee {
 public:
  explicit TramePlans(std::shared_ptr<HabitudesLecture> habitudes) : Habitudes_(std::move(habitudes)) {}
  ~TramePlans() override { Vide(); }

  /// Keeps the buffer, uncopied. `info`: of a format with EstPlanaire. False for a buffer that cannot be read.
  bool Garde(GstBuffer* tampon, const GstVideoInfo& info);
  /// Decodes a picture into memory of its own. `decodeur` has just read its header. False as DecodePlans.
  bool DecodeJpeg(DecodeurJpeg& decodeur, std::span<const quint8> jpeg, QSize taille);
  /// Makes what the readers will ask for by their habits. After Garde or DecodeJpeg, still on the driver's thread.
  void Prepare();
  /// Lets go of the buffer. Memory of its own is kept for the next frame, but for that of a picture that the readers
  /// have no habit of looking at, or that somebody still holds.
  void Vide();

  QSize Taille() const override { return {Plans_.Largeur, Plans_.Hauteur}; }
  TrameBrute Echantillons(qint32 resteX, qint32 resteY) override;
  const QImage& Entiere() override;

 private:
  static constexpr qint32 kAucun = -1;

  void FaisEchantillons(qint32 restes);
  bool FaisEntiere();
  void LacheTampon();

  std::shared_ptr<HabitudesLecture> Habitudes_;
  GstVideoFrame Trame_ = {};  // mapped while its buffer is not null
  std::vector<quint8> Octets_;
  PlansImage Plans_;
  std::vector<quint8> Echantillons_;
  TrameBrute Brute_;        // Echantillons_ as they are read
  qint32 Restes_ = kAucun;  // which ones they are, as in HabitudesLecture
  QImage Image_;            // memory of the picture
  bool EstFaite_ = false;   // Image_ holds this frame
  bool Comparee_ = false, Regardee_ = false;
};

/// The frames, used again and again like the pictures of frame_pool.h. One thread at a time.
class ReserveTrames {
 public:
  /// An empty frame that nobody else holds. It comes back by itself when the last holder lets go.
  std::shared_ptr<TramePlans> Prend();

  size_t Nombre() const { return Trames_.size(); }

 private:
  std::shared_ptr<HabitudesLecture> Habitudes_ = std::make_shared<HabitudesLecture>();
  std::vector<std::shared_ptr<TramePlans>> Trames_;
};

}  // namespace vaktor
