// SPDX-License-Identifier: GPL-3.0-or-later
// The load step of frmSplash: everything between the start of the process and the main window on the screen, in order.
#pragma once

#include <memory>

#include "app/ports/start_steps.h"
#include "base/application_state.h"
#include "base/ports/start_screen.h"
#include "engine/ports/event_pump.h"
#include "engine/ports/timers.h"
#include "settings/parameters.h"
#include "settings/ports/settings_store.h"

namespace vaktor {

struct PortsDepart {
  EcranDepart& Splash;
  const MagasinReglages& Magasin;
  Parametres& Reglages;
  PompeEvenements& Pompe;
  FabriqueMinuteries& Minuteries;
  EtapesDepart& Etapes;
  const EtatApplication& Etat;
};

/// Each pump is a real point of re-entry: companions that were just launched already write into their inboxes, and the
/// one-shot of the start arguments may fire. All that can run there finds Form1 standing, and nothing behind it.
/// Owner: app/. User-interface thread.
class SequenceDepart {
 public:
  static constexpr qint32 kDureeSplash = 2000;  ///< Timer1 of frmSplash, milliseconds

  explicit SequenceDepart(const PortsDepart& ports);

  /// `version`: "major.minor.revision". Stops at the next step when the program is closed in one of the pumps. Passes
  /// on what a step throws: the start is over then.
  void Charge(const QString& version);

 private:
  void LitLangue();
  bool Passe();
  void FinitSplash();

  PortsDepart Ports_;
  std::unique_ptr<Minuterie> Timer1_;
  bool Finie_ = false;  // the splash has given way: there is no road back
};

}  // namespace vaktor
