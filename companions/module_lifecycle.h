// The life of the companion processes: strays of earlier runs are ended, fresh ones are started. Nothing supervises,
// restarts or waits for a companion afterwards.
#pragma once

#include <QString>
#include <optional>

#include "base/program_folders.h"
#include "companions/ports/processes.h"
#include "settings/parameters.h"

namespace vaktor {

/// Owner: app/. User-interface thread.
class ModulesCompagnons {
 public:
  ModulesCompagnons(Processus& processus, const DossiersProgramme& dossiers, const Parametres& reglages)
      : Processus_(processus), Dossiers_(dossiers), Reglages_(reglages) {}

  /// Ends what earlier runs left behind, then starts the FTP, the mail and the sound companion from the program folder,
  /// without argument, and returns without waiting for them. Called once, at start, after the inboxes have been
  /// published. Throws Echec(kFichierIntrouvable), in the user's language, when a companion is missing or does not
  /// start: those behind it are then not started, and the start of the program is over.
  void LanceModules();

  /// Ends one process, the first of the table whose executable name contains `nom` without regard to case. Always gives
  /// the empty text. A process that cannot be ended is passed over in silence.
  QString TueProcessus(const QString& nom);

 private:
  bool TerminePid(const ProcessusVu& vu);
  /// Nothing when no process matches, else whether it is gone.
  std::optional<bool> TerminePremier(const QString& nom);

  Processus& Processus_;
  const DossiersProgramme& Dossiers_;
  const Parametres& Reglages_;
};

}  // namespace vaktor
