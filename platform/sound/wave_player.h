// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the sounds of the interface through GStreamer, on a thread of its own.
#pragma once

#include <functional>
#include <memory>

#include "ui/sound/ports/sound_player.h"

namespace vaktor {

/// Nothing of GStreamer is touched before the first sound. Opening a device can take its time and complain; both stay
/// on the player's thread, and after a refusal the device is left alone for half a minute.
class LecteurGStreamer : public LecteurSon {
 public:
  /// Plays through whatever the machine has. Where it has nothing, nothing of GStreamer is touched at all: to find that
  /// out, GStreamer would load the libraries of every sound system there is.
  LecteurGStreamer();
  /// `sortie`: the GStreamer element that takes the sound, with its properties. `present`: asked before each sound, on
  /// the player's thread, whether there is any use in trying; it owns what it uses.
  explicit LecteurGStreamer(
      const QString& sortie, std::function<bool()> present = [] { return true; });
  /// Waits half a second for the thread, and leaves it behind where the sound system hangs.
  ~LecteurGStreamer() override;
  LecteurGStreamer(const LecteurGStreamer&) = delete;
  LecteurGStreamer& operator=(const LecteurGStreamer&) = delete;

  void Joue(const QString& chemin) override;

 private:
  class Fil;
  const QString Sortie_;
  const std::function<bool()> Present_;
  std::shared_ptr<Fil> Fil_;  // from the first sound on
};

}  // namespace vaktor
