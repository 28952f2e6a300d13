// SPDX-License-Identifier: GPL-3.0-or-later
// What an alarm does, handed to the rooms that do it.
#pragma once

#include <functional>
#include <utility>

#include "engine/ports/alarm_actions.h"
#include "settings/ports/module_commands.h"

namespace vaktor {

/// Made before the engine, whose surface the recorder of the photos needs: `photo` reaches the recorder.
class ActionsAlarmeReelles : public ActionsAlarme {
 public:
  ActionsAlarmeReelles(CommandesModules& modules, std::function<void()> photo)
      : Modules_(modules), Photo_(std::move(photo)) {}

  void EnregistrePhoto() override { Photo_(); }
  void EnvoiMail() override { Modules_.EnvoiMail(Commande::kIntrusion); }
  void EnvoiSon() override { Modules_.EnvoiSon(Commande::kIntrusion); }

 private:
  CommandesModules& Modules_;
  const std::function<void()> Photo_;
};

}  // namespace vaktor
