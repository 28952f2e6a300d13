// SPDX-License-Identifier: GPL-3.0-or-later
// A stream of frames from one opening of a source. Not a camera's whole life: that is the session's, which makes a
// fresh stream whenever the former one ended.
#pragma once

#include <chrono>
#include <stop_token>

#include "platform/capture/choice/capture_reason.h"

namespace vaktor {

class FluxImages {
 public:
  enum class Etat { kCoule, kFini, kErreur };

  /// Ends and releases everything: no frame arrives afterwards. May block as long as the system makes it.
  virtual ~FluxImages() = default;
  /// Begins; frames then arrive in the box that the stream was made for. False: nothing is open.
  virtual bool Ouvre() = 0;
  /// Waits for something to happen, at most `delai`, and comes back at once when a stop is asked for. kFini: the end
  /// of what can be played. kErreur: broken.
  virtual Etat Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) = 0;
  /// Whether the source has told what it sends, so that another way to it may do where this one did not.
  virtual bool EstDecrit() const { return true; }
  /// Whether anything has come from the source, though perhaps no picture yet.
  virtual bool Recoit() const { return false; }
  /// Why it has ended, or could not begin, as far as anybody said so.
  virtual Raison Pourquoi() const { return {}; }
};

}  // namespace vaktor
