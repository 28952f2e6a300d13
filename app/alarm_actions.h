// SPDX-License-Identifier: GPL-3.0-or-later
// What an alarm does, handed to the rooms that do it.
#pragma once

#include <functional>
#include <utility>

#include "companions/intrusion_program.h"
#include "engine/ports/alarm_actions.h"
#include "settings/ports/module_commands.h"

namespace vaktor {

/// Made before the engine, whose surface the recorder of the photos needs: `photo` reaches the recorder. `temoin` is
/// told of each acting frame behind its photo; it only watches and throws nothing.
class ActionsAlarmeReelles : public ActionsAlarme {
 public:
  ActionsAlarmeReelles(CommandesModules& modules, AnnonceIntrusion& annonce, std::function<void()> photo,
                       std::function<void()> temoin)
      : Modules_(modules), Annonce_(annonce), Photo_(std::move(photo)), Temoin_(std::move(temoin)) {}

  void EnregistrePhoto() override { Photo_(); }
  void EnvoiMail() override { Modules_.EnvoiMail(Commande::kIntrusion); }
  void EnvoiSon() override { Modules_.EnvoiSon(Commande::kIntrusion); }
  void NoteIntrusion() noexcept override {
    Annonce_.NoteIntrusion();
    Temoin_();
  }

 private:
  CommandesModules& Modules_;
  AnnonceIntrusion& Annonce_;
  const std::function<void()> Photo_;
  const std::function<void()> Temoin_;
};

}  // namespace vaktor
