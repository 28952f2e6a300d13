// Plays the sounds of the interface through GStreamer, on a thread of its own.
#pragma once

#include <memory>

#include "ui/ports/sound_player.h"

namespace vaktor {

/// Nothing of GStreamer is touched before the first sound. Opening a device can take its time and complain; both stay
/// on the player's thread, and after a refusal the device is left alone for half a minute.
class LecteurGStreamer : public LecteurSon {
 public:
  /// `sortie`: the GStreamer element that takes the sound, with its properties.
  explicit LecteurGStreamer(const QString& sortie = QStringLiteral("autoaudiosink"));
  ~LecteurGStreamer() override;
  LecteurGStreamer(const LecteurGStreamer&) = delete;
  LecteurGStreamer& operator=(const LecteurGStreamer&) = delete;

  void Joue(const QString& chemin) override;

 private:
  class Fil;
  const QString Sortie_;
  std::unique_ptr<Fil> Fil_;  // from the first sound on
};

}  // namespace vaktor
