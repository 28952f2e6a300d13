// Port: the capture driver, one camera. Real implementation in platform/capture/, fake in tests/fakes/.
#pragma once

#include <QImage>

#include "engine/camera_image.h"

namespace vaktor {

/// User-interface thread. The driver may use threads of its own below; every call here returns within a fraction of a
/// second but Connecte (a few seconds at most) and the two dialogs (modal: no tick comes while one is open). These
/// three let events run, so that no window stands still.
class PiloteCapture {
 public:
  virtual ~PiloteCapture() = default;

  /// Opens the first capture driver, or the one named at the start, and waits for its first frame. False when there is
  /// no camera, or it is busy, refused or silent; nothing stays open then. A driver that is open is closed first. Mouse
  /// and keys wait until it has answered; everything else goes on. Deconnecte may be called from there: it ends the
  /// wait, and the answer is false.
  virtual bool Connecte() = 0;

  /// Closes the driver. The result is of no interest to anyone; a closed driver stays closed.
  virtual void Deconnecte() = 0;

  /// Waits for a frame newer than the last one taken, at most about 100 ms. False when none came in that time; the
  /// earlier frame then stays the one that CopieImage gives.
  virtual bool SaisitImage() = 0;

  /// The frame last taken by SaisitImage, Format_RGB32 (bytes B, G, R, 0xff), in the camera's current size, never
  /// scaled; a null image before the first one. Shared, not copied: it stays valid and unchanged as long as somebody
  /// holds it, and the driver takes its memory back for a later frame when nobody does.
  virtual QImage CopieImage() const = 0;

  /// The same frame as the driver has it. CopieImage makes the picture of a frame that is still in the form to which it
  /// was decoded; this does not, and its Entiere() is what CopieImage gives.
  virtual ImageCamera CopieTrame() const { return CopieImage(); }

  /// True while the camera is connected and its newest frame is older than a stall takes to be noticed.
  virtual bool SignalPerdu() const = 0;

  /// The driver's own dialogs. They block until the user closes them; what was picked takes effect through the frames.
  virtual void MontreDialogueFormat() = 0;
  virtual void MontreDialogueSource() = 0;
};

}  // namespace vaktor
