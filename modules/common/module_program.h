// SPDX-License-Identifier: GPL-3.0-or-later
// What all companion programs are: the same start, the same life, the same end. A companion itself is a Module.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <memory>

#include "companions/contract/command_words.h"
#include "engine/ports/clock.h"
#include "engine/ports/timers.h"
#include "modules/common/failure_notice.h"
#include "modules/common/main_link.h"
#include "modules/common/module_folders.h"
#include "modules/common/module_settings.h"
#include "platform/base/bounded_log.h"

namespace vaktor {

/// What a companion is given. Outlives the module.
struct ContexteModule {
  const DossiersModule& Dossiers;
  JournalBorne& Journal;
  EtatModule& Etat;
  FabriqueMinuteries& Minuteries;
  const Horloge& Temps;
  std::function<void(const QString& mot)> Dis;                              ///< a word upward, see LienPrincipal::Dis
  std::function<void()> Quitte;                                             ///< ends the process, from the event loop
  std::function<qint64()> Maintenant = &QDateTime::currentMSecsSinceEpoch;  ///< milliseconds since 1970
};

/// One companion. All calls come from the event loop, one at a time; what they throw is written to the log and the
/// companion goes on.
class Module {
 public:
  virtual ~Module() = default;
  /// At start, before anything else, and on each Commande::kOptions. The passwords are hidden from log and status
  /// already.
  virtual void PrendReglages(const ReglagesModule& reglages) = 0;
  /// Registered with a main program, the first or one that has come back.
  virtual void Enregistre(Inscription /*comment*/) {}
  /// Any command but kOptions and kQuitte.
  virtual void ExecuteCommande(Commande commande) = 0;
  /// Commande::kQuitte, a TERM signal, or the main program is gone for good. Has to call Quitte, at once or after what
  /// cannot wait; is called once.
  virtual void Termine() = 0;
};

struct DescriptionModule {
  Compagnon Qui;
  QString Version;
  QString Francais;  ///< one line for "--help": what the companion does
  QString English;
  QString Options = {};  ///< further lines for "--help": arguments that the companion's main() has taken out itself
};

/// main() of a companion: "--help" and "--version", folders, log, store, link, signals, event loop. Gives the exit
/// status: 0, 1 when the channel cannot be had, 2 for an argument that it does not know.
int ExecuteModule(int argc, char** argv, const DescriptionModule& description,
                  const std::function<std::unique_ptr<Module>(const ContexteModule&)>& cree);

}  // namespace vaktor
