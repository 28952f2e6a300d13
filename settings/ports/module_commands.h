// SPDX-License-Identifier: GPL-3.0-or-later
// Port: commands to the three companions. The save tells them kOptions through it.
#pragma once

#include "companions/contract/command_words.h"

namespace vaktor {

/// User-interface thread. Fire and forget: returns at once, fails without notice.
class CommandesModules {
 public:
  virtual ~CommandesModules() = default;
  virtual void EnvoiFTP(Commande commande) = 0;
  virtual void EnvoiMail(Commande commande) = 0;
  virtual void EnvoiSon(Commande commande) = 0;
};

}  // namespace vaktor
