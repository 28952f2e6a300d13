// SPDX-License-Identifier: GPL-3.0-or-later
// What the engine asks of the rooms above it. Handed in at construction; the engine knows only these words.
#pragma once

#include <QString>

#include "engine/camera_image.h"

namespace vaktor {

/// What an armed system does on a frame above the action level. All calls return at once but EnregistrePhoto, which
/// blocks until the file is on disk and throws Echec when it cannot be written.
class ActionsAlarme {
 public:
  virtual ~ActionsAlarme() = default;
  virtual void EnregistrePhoto() = 0;
  virtual void EnvoiMail() = 0;  ///< tells the mail companion of the intrusion; fire and forget
  virtual void EnvoiSon() = 0;   ///< the same with the sound companion
  /// The frame has acted, whatever of the above was wanted or failed. The last call of the frame.
  virtual void NoteIntrusion() noexcept = 0;
};

/// The live page as the engine sees it: whether it is on, and who publishes a frame.
class LiaisonLive {
 public:
  virtual ~LiaisonLive() = default;
  /// The companion has reported a connection and frames may flow.
  virtual bool LiveActif() const = 0;
  /// Photos of the alarm are wanted for the site: frames flow, or will again when the companion is back. What happens
  /// until then is kept for it.
  virtual bool VeutPhotos() const = 0;
  /// Stamps this frame, the one that is analysed, writes it and tells the companion. Throws Echec when the file cannot
  /// be written, for the first second of such a failure; later on it is tried once a second and fails in silence, so
  /// that detection goes on.
  virtual void PublieLive(const ImageCamera& image) = 0;
};

}  // namespace vaktor
