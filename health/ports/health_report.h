// SPDX-License-Identifier: GPL-3.0-or-later
// Port: whoever knows that something is wrong with the watch says so here. How long it must last before it counts, how
// bad it is, in which words and where it is told is for the room of the health alone.
#pragma once

#include <QString>

namespace vaktor {

/// What can be wrong with the watch. Reported by the one room that each line names.
enum class Condition {
  kSignalPerdu,         ///< the camera gives no new frames (engine)
  kDetectionArretee,    ///< frame upon frame is not compared (engine)
  kPhotosImpossibles,   ///< photos cannot be written; the detail is the reason (recorder)
  kLimitePhotos,        ///< the run's limit of photos is reached (recorder)
  kPeuDePlace,          ///< less than kOctetsAvertissement free where the photos go (recorder)
  kReglagesNonSauves,   ///< settings cannot be saved; the detail is the reason (settings)
  kCompagnonFtp,        ///< the FTP companion is missing, dead, hung or has not registered again (companions)
  kCompagnonMail,       ///< the same of the mail companion
  kCompagnonSon,        ///< the same of the sound companion
  kCasiersPerdus,       ///< the inboxes in the store are no longer ours: another copy runs (companions)
  kCasiersNonEcrits,    ///< our own inboxes cannot be written into the store; the detail is the reason (companions)
  kCourrielsEnAttente,  ///< mails wait longer than five minutes; the detail is the server's word (companions)
  kPageAncienne,        ///< the live page is older than three of its intervals and 30 s (companions)
  kEnvoisInconnus,      ///< a companion gives no news of its work; the detail is its name (companions)
  kVeillePossible,   ///< the machine may go to sleep while the camera runs: the request not to was refused (platform)
  kInterruption,     ///< the machine slept, or the clock jumped: the detail is the gap (platform)
  kCameraAttendue,   ///< a start that nobody watches waits for its camera; the detail is why there is none (engine)
  kAutreCamera,      ///< the camera at work is not the one that was chosen; the detail is its name (engine)
  kPushEnAttente,    ///< pushes wait longer than five minutes; the detail is the server's word (companions)
  kImageFigee,       ///< frame upon frame is the same to the last bit (engine)
  kImageNoire,       ///< the same, and black: it may only be dark (engine)
  kPageCoupee,       ///< the live page ran, and an error switched it off; the detail is which (companions)
  kReglagesAbimes,   ///< the settings file was damaged: the detail is what of it, and where it is kept (settings)
  kDossierRemplace,  ///< the photo folder was not there at the start and is another now: the detail is both (settings)
  kSonMuet,          ///< the last alarm sound was not heard; the detail is its file, or the system's word (companions)
};
inline constexpr int kNombreConditions = 25;

/// User-interface thread. Both calls are cheap and may be repeated at each frame.
class RapportSante {
 public:
  virtual ~RapportSante() = default;
  /// It is so, since now if it was not before. `detail`: what only this case can say, a path or another side's own
  /// words; a new detail replaces the earlier one.
  virtual void Signale(Condition quoi, const QString& detail = {}) = 0;
  /// It is so no longer. Without effect where it was not.
  virtual void Leve(Condition quoi) = 0;
};

}  // namespace vaktor
