// SPDX-License-Identifier: GPL-3.0-or-later
// The launch of the companion processes: strays of earlier runs are ended, fresh ones are started. Who looks after them
// from there on stands in companion_watch.h.
#pragma once

#include <QString>
#include <functional>

#include "companions/contract/command_words.h"
#include "companions/ports/processes.h"
#include "settings/parameters.h"

namespace vaktor {

/// Ends every process whose name contains `nom` without regard to case: that of its executable, that under which it was
/// started, or that of the script that it runs; but no rehearsal. One that cannot be ended is passed over in silence.
/// Blocks half a second at the most for each that ignores the polite request, and for four of these at the most. The
/// thread of `processus`.
void TermineErrants(Processus& processus, const QString& nom);

/// Owner: app/. User-interface thread.
class ModulesCompagnons {
 public:
  /// Starts one companion from the program folder, without argument, and does not wait for it; false when it is missing
  /// or does not start.
  using Lanceur = std::function<bool(Compagnon)>;

  ModulesCompagnons(Processus& processus, Lanceur lance, const Parametres& reglages)
      : Processus_(processus), Lance_(std::move(lance)), Reglages_(reglages) {}

  /// Ends what earlier runs left behind, then starts the FTP, the mail and the sound companion. Called once, at start,
  /// after the inboxes have been published. Throws Echec(kFichierIntrouvable), in the user's language, when a companion
  /// is missing or does not start: those behind it are then not started, and the start of the program is over.
  void LanceModules();

 private:
  Processus& Processus_;
  Lanceur Lance_;
  const Parametres& Reglages_;
};

}  // namespace vaktor
