// SPDX-License-Identifier: GPL-3.0-or-later
// When the program of the user's own is told of an intrusion, and with which photos.
#pragma once

#include <QStringList>
#include <functional>
#include <memory>

#include "engine/ports/clock.h"
#include "engine/ports/timers.h"
#include "health/ports/user_program.h"

namespace vaktor {

/// All of it outlives the rule.
struct PortsAnnonceIntrusion {
  const Horloge& Temps;
  FabriqueMinuteries& Minuteries;
  ProgrammePersonnel& Programme;
  std::function<void()> SurDebut = {};  ///< an intrusion has begun; may be empty, and throws nothing
};

/// An alarm acts on each frame, thirty times a second, and knows no intrusion that begins and ends. A program that is
/// started does: an intrusion begins with the first frame that acts, and is over when none has acted for kFinMs. Its
/// first frame starts the program, a later one does so at most once in kPauseMs. Owner: app/. User-interface thread.
class AnnonceIntrusion {
 public:
  static constexpr quint32 kFinMs = 10'000;
  static constexpr quint32 kPauseMs = 60'000;
  /// The newest of an intrusion that are handed over: the system bounds what a command line may hold.
  static constexpr qsizetype kPhotosMax = 1000;

  explicit AnnonceIntrusion(const PortsAnnonceIntrusion& ports);

  /// A photo of the user's was written; its path with "/" between the folders. Before the NoteIntrusion of its frame.
  void NotePhoto(const QString& fichier) noexcept;
  /// A frame has acted. Nothing that fails here reaches the alarm.
  void NoteIntrusion() noexcept;

 private:
  void FinitSiCalme();

  PortsAnnonceIntrusion Ports_;
  std::unique_ptr<Minuterie> TimerFin_;  // looks for the end: the counter wraps, and after 49 days a gap looks small
  bool EnCours_ = false;
  quint32 DernierActe_ = 0;       // counter of the clock
  quint32 DernierLancement_ = 0;  // likewise
  bool Lance_ = false;            // once at least in this intrusion
  QStringList Photos_;            // of this intrusion, oldest first
};

}  // namespace vaktor
