// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/module_send_messages.h"

namespace vaktor {

void ModuleSendMessages::EnvoiFTP(Commande commande) { Poste(Compagnon::kFtp, Liaison_.HandleFTP, commande); }

void ModuleSendMessages::EnvoiMail(Commande commande) { Poste(Compagnon::kMail, Liaison_.HandleMail, commande); }

void ModuleSendMessages::EnvoiSon(Commande commande) { Poste(Compagnon::kSon, Liaison_.HandleSon, commande); }

void ModuleSendMessages::Poste(Compagnon compagnon, qint32 poignee, Commande commande) {
  if (const std::optional<qint32> code = DonneCodeTouche(compagnon, commande))
    Canal_.PosteTouche(poignee, *code, DonneTenue(commande));
}

}  // namespace vaktor
