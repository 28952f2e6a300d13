// SPDX-License-Identifier: GPL-3.0-or-later
// ModuleSendMessages: one command in, one key code posted to the companion, fire and forget.
#pragma once

#include "companions/contract/command_words.h"
#include "companions/link_state.h"
#include "companions/ports/message_channel.h"
#include "settings/ports/module_commands.h"

namespace vaktor {

/// Owner: app/. User-interface thread. A command that the companion does not know posts nothing; a companion that has
/// not answered yet (handle 0) or has died hears nothing; neither is an error.
class ModuleSendMessages : public CommandesModules {
 public:
  ModuleSendMessages(CanalMessages& canal, const EtatLiaison& liaison) : Canal_(canal), Liaison_(liaison) {}

  void EnvoiFTP(Commande commande) override;
  void EnvoiMail(Commande commande) override;
  void EnvoiSon(Commande commande) override;

 private:
  void Poste(Compagnon compagnon, qint32 poignee, Commande commande);

  CanalMessages& Canal_;
  const EtatLiaison& Liaison_;
};

}  // namespace vaktor
