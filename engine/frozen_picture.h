// SPDX-License-Identifier: GPL-3.0-or-later
// A picture that stands still to the last bit: the camera delivers frame upon frame and looks alive, and nothing will
// ever be seen in them, since they are all the same one (an encoder that hangs, a buffer that is handed out again and
// again). A sensor has noise: even a picture in which nobody moves differs somewhere within seconds.
#pragma once

#include <QtGlobal>

#include "engine/raw_frame.h"
#include "engine/sampling.h"

namespace vaktor {

/// What the samples of a whole picture come to. Two pictures that differ in one sample never have the same one; two
/// others by an accident that nobody will live to see.
struct EmpreinteImage {
  quint64 Somme = 0;
  bool Noire = true;  ///< no sample is brighter than kNoir, in any of its colours
  bool operator==(const EmpreinteImage&) const = default;
};

/// A picture without light: what a sensor's black is lifted to, and no more.
inline constexpr qint32 kNoir = 31;

/// `trame`: of this phase, where it holds its samples only. Takes no memory.
EmpreinteImage PrendEmpreinte(const TrameBrute& trame, PhaseEchantillons phase);

/// Owner: the engine's state. What the comparison counts is no measure, since it looks at the zone and lets pass what
/// its tolerance covers, so the whole picture is looked at, but only where the comparison has found no change, and once
/// in kRegardMs: of the frames between two looks nothing is asked.
class ImageFigee {
 public:
  /// Compressed pictures of a dark and quiet room may be the same for as long as their encoder takes to begin anew,
  /// which is seconds, with some a minute.
  static constexpr quint32 kFigeeMs = 300'000;
  /// No divisor of a second, nor a multiple: something that blinks would be met in the same phase each time.
  static constexpr quint32 kRegardMs = 1'300;
  /// Looks that lie further apart say nothing of the time between them (a dialog of the driver was open). A camera is
  /// lost before that.
  static constexpr quint32 kTrouMs = 120'000;

  enum class Etat {
    kVivante,
    kFigee,  ///< the same for kFigeeMs
    kNoire   ///< the same, and black: it may only be dark
  };

  /// The picture has changed, or the camera, or there is none.
  void Oublie() { *this = {}; }
  /// `maintenant`: the counter of milliseconds, here and below; it may wrap.
  bool RegardDu(quint32 maintenant) const { return !Vue_ || maintenant - Regard_ >= kRegardMs; }
  void Regarde(const EmpreinteImage& empreinte, quint32 maintenant);
  Etat Dit() const { return Etat_; }

 private:
  EmpreinteImage Empreinte_;
  quint32 Debut_ = 0;   // of the first look that found this picture
  quint32 Regard_ = 0;  // of the last one
  bool Vue_ = false;    // there was one
  Etat Etat_ = Etat::kVivante;
};

}  // namespace vaktor
