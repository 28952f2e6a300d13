// SPDX-License-Identifier: GPL-3.0-or-later
// Where the frames arrive: the newest one, its number and its age, and the bell that tells of it. Filled by the
// driver's thread, read by the program's.
#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>

#include "engine/camera_image.h"
#include "engine/signal_loss.h"
#include "platform/capture/choice/camera_format.h"

namespace vaktor {

/// Rung on any thread, heard on the thread that made the listener, out of its event loop. Several rings that nobody has
/// heard yet are one. The box may outlive the driver, where the system hangs: a bell without a listener is silent.
class SonnetteImages {
 public:
  void Sonne() noexcept;

 private:
  friend class EcouteSonnette;
  std::mutex Verrou_;
  QObject* Chez_ = nullptr;  // Verrou_; null: nobody is at home
  bool Sonnee_ = false;      // Verrou_; on its way
};

/// Made and destroyed on the thread that is to be woken. After its destruction nothing is called any more.
class EcouteSonnette : public QObject {
 public:
  explicit EcouteSonnette(std::function<void()> entendu);
  ~EcouteSonnette() override;

  const std::shared_ptr<SonnetteImages>& Sonnette() const { return Sonnette_; }
  bool event(QEvent* evenement) override;

 private:
  const std::function<void()> Entendu_;
  const std::shared_ptr<SonnetteImages> Sonnette_ = std::make_shared<SonnetteImages>();
};

class DerniereImage {
 public:
  using Horloge = std::chrono::steady_clock;

  /// `sansMesure`: at which age of its newest frame a camera is lost whose gaps are not known yet, if it promises no
  /// slower rate.
  explicit DerniereImage(std::chrono::milliseconds sansMesure = std::chrono::milliseconds(PerteSignal::kMinimum))
      : SansMesure_(sansMesure) {}

  struct Arrivee {
    ImageCamera Image;
    quint64 Numero = 0;    ///< 1 for the first frame; 0: none yet
    quint64 Reprises = 0;  ///< how often NoteReprise had been called when it came
  };

  void Depose(const ImageCamera& image);
  /// What comes from here on comes out of another opening: the time before its first frame is no gap, and its gaps are
  /// measured anew.
  void NoteOuverture();
  /// What comes from here on comes from a camera that was lost and is there again.
  void NoteReprise();

  /// The newest frame if its number is above `dernier`; else number 0.
  Arrivee Prend(quint64 dernier) const;
  /// Who is to be told of frames; null for nobody, who is told afterwards only what was on its way.
  void RelieSonnette(std::shared_ptr<SonnetteImages> sonnette);
  /// Rings once as soon as the newest frame's number is above `dernier`, now if it is already.
  void Previens(quint64 dernier);

  quint64 Numero() const;
  /// Time since the newest frame; since the making of the box when there is none.
  std::chrono::milliseconds Age() const;

  /// As negotiated, told when it changes.
  void FixeFormat(const FormatCamera& format);
  FormatCamera Format() const;

  /// The newest frame is older than DelaiPerte: the signal is lost, and the stream is to be opened again.
  bool Perdu() const;
  std::chrono::milliseconds DelaiPerte() const;

 private:
  void NoteInstant(Horloge::time_point maintenant);
  std::chrono::milliseconds DelaiSousVerrou() const;

  const std::chrono::milliseconds SansMesure_;

  mutable std::mutex Verrou_;
  ImageCamera Image_;
  quint64 Numero_ = 0;
  quint64 Reprises_ = 0;
  std::shared_ptr<SonnetteImages> Sonnette_;
  bool Attendue_ = false;  // the next frame is to be told
  Horloge::time_point Instant_ = Horloge::now();
  TrousRecents Trous_;
  bool Suite_ = false;  // the next frame belongs to the same opening as the newest one
  FormatCamera Format_;
};

}  // namespace vaktor
