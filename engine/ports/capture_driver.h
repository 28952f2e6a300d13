// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the capture driver, one camera. Real implementation in platform/capture/, fake in tests/fakes/.
#pragma once

#include <QString>
#include <functional>

#include "engine/camera_image.h"

namespace vaktor {

/// User-interface thread. The driver may use threads of its own below; every call here returns within a fraction of a
/// second but Connecte (a quarter of a minute, or as long as the user is asked) and the two dialogs (modal: no tick
/// comes while one is open). These three let events run, so that no window stands still.
class PiloteCapture {
 public:
  virtual ~PiloteCapture() = default;

  /// Opens the first capture driver, or the one that was chosen or named at the start, and waits for its first frame.
  /// Where the chosen one gives none the user may be asked for another, or the only other camera is taken
  /// (AutreCamera). False when there is no camera, or it is busy, refused or silent; nothing stays open then. A driver
  /// that is open is closed first. Everything goes on meanwhile, mouse and keys too: whoever calls sees to it that no
  /// second order falls into the wait. Deconnecte may be called from there: it ends the wait, and the answer is false.
  virtual bool Connecte() = 0;

  /// The same for a start that nobody watches: returns at once, asks nothing, and goes on trying until Connecte or
  /// Deconnecte is called. ImagePrete says when the camera is there.
  virtual void ConnecteSansAttendre() = 0;

  /// Why Connecte has just failed, ConnecteSansAttendre has not succeeded yet, or a camera that was lost is not back: a
  /// sentence in the user's language,
  /// where the driver knows more than that no picture came; else empty. Never holds a password.
  virtual QString Explication() const = 0;

  /// The camera at work, where it is the only one there is and not the one that was chosen; else empty.
  virtual QString AutreCamera() const = 0;

  /// Closes the driver. The result is of no interest to anyone; a closed driver stays closed.
  virtual void Deconnecte() = 0;

  /// Whether a frame newer than the last one taken is there. Never waits for one.
  virtual bool ImagePrete() const = 0;

  /// Takes the newest frame if it is newer than the last one taken, and never waits for one. False otherwise; the
  /// earlier frame then stays the one that CopieTrame gives. Frames that were overtaken by a newer one are gone.
  virtual bool SaisitImage() = 0;

  /// Calls `reveil` once when ImagePrete is true, out of the event loop and never from inside this call; soon, if it is
  /// true already. At most one waits: a later call takes the place of the earlier one, an empty function takes it back,
  /// and a frame that is taken meanwhile ends it. Never called after Deconnecte, nor from a camera that another one has
  /// replaced; without a camera nothing is kept. Takes no memory for a function that fits a std::function.
  virtual void AttendImage(std::function<void()> reveil) = 0;

  /// True while the frame last taken is the first one after the driver has lost its camera and connected to it again by
  /// itself. Not so after Connecte, nor at the end of a film that plays again or of a network stream in good order that
  /// opens again at once, nor after a dialog, unless the camera that it leaves open was lost and came back only later.
  virtual bool EstReprise() const = 0;

  /// The frame last taken by SaisitImage, in the camera's current size, or in the largest of its shape that the
  /// detection can hold (engine/sampling.h) where that is smaller; a null one before the first. Its
  /// picture, Format_RGB32 (bytes B, G, R, 0xff), may be made only when somebody asks for it (camera_image.h). Shared,
  /// not copied: it stays valid and unchanged as long as somebody holds it, and the driver takes its memory back for a
  /// later frame when nobody does.
  virtual ImageCamera CopieTrame() const = 0;

  /// True while the newest frame is older than a stall takes to be noticed, and where nothing is open at all.
  virtual bool SignalPerdu() const = 0;

  /// The driver's own dialogs. They block until the user closes them; what was picked takes effect through the frames.
  virtual void MontreDialogueFormat() = 0;
  virtual void MontreDialogueSource() = 0;
};

}  // namespace vaktor
