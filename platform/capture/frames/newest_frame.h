// Where the frames arrive: the newest one, its number and its age. Filled by the driver's thread, read by the
// program's.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

#include "engine/camera_image.h"
#include "engine/signal_loss.h"
#include "platform/capture/choice/camera_format.h"
#include "platform/capture/frames/frame_bell.h"

namespace vaktor {

class BoiteImages {
 public:
  using Horloge = std::chrono::steady_clock;

  /// Of the newest frame (engine/signal_loss.h).
  struct Ages {
    std::chrono::milliseconds Dite{PerteSignal::kDite};
    std::chrono::milliseconds Reouverte{PerteSignal::kReouverte};
  };

  BoiteImages() = default;
  explicit BoiteImages(Ages ages) : Ages_(ages) {}

  struct Arrivee {
    ImageCamera Image;
    quint64 Numero = 0;    ///< 1 for the first frame; 0: none yet
    quint64 Reprises = 0;  ///< how often NoteReprise had been called when it came
  };

  void Depose(const ImageCamera& image);
  /// What comes from here on comes from a camera that was lost and is there again.
  void NoteReprise();

  /// The newest frame if its number is above `dernier`; else number 0.
  Arrivee Prend(quint64 dernier) const;
  /// Who is to be told of frames; null for nobody, who is told afterwards only what was on its way.
  void RelieSonnette(std::shared_ptr<SonnetteImages> sonnette);
  /// Rings once as soon as the newest frame's number is above `dernier`, now if it is already.
  void Previens(quint64 dernier);

  /// The newest frame as soon as its number is above `dernier`; number 0 when none came within the time.
  Arrivee Attend(quint64 dernier, std::chrono::milliseconds delai);
  quint64 Numero() const;
  /// Time since the newest frame; since the making of the box when there is none.
  std::chrono::milliseconds Age() const;

  /// As negotiated, told when it changes. A slow rate also lengthens the ages at which a frame is missed.
  void FixeFormat(const FormatCamera& format);
  FormatCamera Format() const;

  /// The newest frame is so old that the signal is told as lost.
  bool Perdu() const;
  /// It is so old, older than DelaiReouverture, that the stream is to be opened again.
  bool EstARouvrir() const;
  std::chrono::milliseconds DelaiReouverture() const;

 private:
  std::chrono::milliseconds DelaiPour(std::chrono::milliseconds auMoins) const;

  const Ages Ages_;

  mutable std::mutex Verrou_;
  std::condition_variable Nouvelle_;
  ImageCamera Image_;
  quint64 Numero_ = 0;
  quint64 Reprises_ = 0;
  std::shared_ptr<SonnetteImages> Sonnette_;
  bool Attendue_ = false;  // the next frame is to be told
  Horloge::time_point Instant_ = Horloge::now();
  FormatCamera Format_;
};

}  // namespace vaktor
