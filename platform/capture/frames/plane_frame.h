// SPDX-License-Identifier: GPL-3.0-or-later
// Memory of frames, used again and again: whole pictures, and frames that stay in the planes they were decoded to until
// somebody looks at them.
#pragma once

#include <gst/video/video.h>

#include <QImage>
#include <QSize>
#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "engine/camera_image.h"
#include "platform/capture/frames/own_planes.h"
#include "platform/capture/frames/pixel_conversion.h"
#include "platform/capture/frames/sample_conversion.h"

namespace vaktor {

/// One thread at a time (the one that makes the frames). The images handed out may be held and released anywhere.
class ReserveImages {
 public:
  /// An image of this size, Format_RGB32, whose pixels nobody else holds; its content is whatever was there. Null when
  /// there is no memory for it. The caller fills it at once (its first write must not find a second holder) and may
  /// then share it; it comes back by itself when the last holder lets go.
  QImage* Prend(QSize taille);

  size_t Nombre() const { return Images_.size(); }

 private:
  std::vector<QImage> Images_;
  QImage HorsReserve_;
};

class TramePlans;

/// What the frames of one source have in common. Any thread, but for PrendImage.
class FondsTrames {
 public:
  /// ReserveTrames::Prend.
  std::shared_ptr<TramePlans> Prend(const std::shared_ptr<FondsTrames>& soi);
  /// Memory for the pixels of a frame: another frame's that can be made again, or new. Null when there is none.
  /// User-interface thread.
  QImage PrendImage(QSize taille);
  /// A frame was looked at again after its picture had been taken for another one.
  void Redemande() { Cedent_ = false; }
  size_t Nombre() const;

  /// Of the pixels that are compared: the driver's thread has those of the next frame ready. It has the frame in the
  /// nearest caches when it has just decoded it, the reader's has not. Late by a frame it costs time and nothing else.
  std::atomic<PhaseEchantillons> Phase = PhaseEchantillons();
  void FixeRegardees(bool regardees);
  bool Regardees() const { return Regardees_; }

 private:
  std::atomic<bool> Regardees_ = false;  // somebody looks at the pictures of the frames
  std::atomic<bool> Cedent_ = true;      // one frame at a time is looked at
  mutable std::mutex Verrou_;            // of Trames_, and of the frames that nobody holds
  std::vector<std::shared_ptr<TramePlans>> Trames_;
};

/// Filled by the driver's thread while nobody else holds it; then it belongs to those who read it (camera_image.h).
class TramePlans : public TrameDifferee {
 public:
  explicit TramePlans(std::weak_ptr<FondsTrames> fonds) : Fonds_(std::move(fonds)) {}
  ~TramePlans() override { Vide(); }

  /// Keeps the buffer, uncopied. `info`: of a format with EstPlanaire. False for a buffer that cannot be read.
  bool Garde(GstBuffer* tampon, const GstVideoInfo& info);
  /// PlansPropres::DecodeJpeg and Reduit: into memory of its own.
  bool DecodeJpeg(DecodeurJpeg& decodeur, std::span<const quint8> jpeg, QSize taille);
  bool Reduit(const PlansImage& plans, QSize taille);
  /// Makes the samples that the reader will ask for. After one of these three, still on the driver's thread.
  void Prepare();
  /// Lets go of what was kept. Memory of its own stays for the next frame, but for a picture's when nobody looks at the
  /// pictures, or when somebody still holds this one. While nobody holds the frame.
  void Vide();
  /// Gives up the memory of its picture if that is of this size and nobody else's. The picture is made again when
  /// somebody looks at the frame. User-interface thread, or while nobody holds the frame.
  QImage CedeImage(QSize taille);

  QSize Taille() const override { return {Plans_.Largeur, Plans_.Hauteur}; }
  TrameBrute Echantillons(PhaseEchantillons phase) override;
  const QImage& Entiere() override;
  bool EcritPart(const QRect& part, uchar* vers, qsizetype pas) override;

 private:
  void FaisEchantillons(PhaseEchantillons phase);
  bool FaisEntiere();
  void LacheTampon();

  std::weak_ptr<FondsTrames> Fonds_;
  GstVideoFrame Trame_ = {};  // mapped while its buffer is not null
  PlansPropres Propres_;
  PlansImage Plans_;  // of Trame_ or Propres_
  std::vector<quint8> Echantillons_;
  TrameBrute Brute_;                        // Echantillons_ as they are read
  std::optional<PhaseEchantillons> Phase_;  // which ones they are; none are there
  QImage Image_;                            // memory of the picture
  bool EstFaite_ = false;                   // Image_ holds this frame
  bool Cedee_ = false;                      // it did, and gave it up
  bool Comparee_ = false, Regardee_ = false;
};

/// The frames, used again and again like the pictures of frame_pool.h. One thread at a time.
class ReserveTrames {
 public:
  /// An empty frame that nobody else holds. It comes back by itself when the last holder lets go.
  std::shared_ptr<TramePlans> Prend() { return Fonds_->Prend(Fonds_); }

  size_t Nombre() const { return Fonds_->Nombre(); }

 private:
  std::shared_ptr<FondsTrames> Fonds_ = std::make_shared<FondsTrames>();
};

}  // namespace vaktor
