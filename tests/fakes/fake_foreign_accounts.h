// SPDX-License-Identifier: GPL-3.0-or-later
// Accounts of mail programs, as a list.
#pragma once

#include "companions/ports/foreign_accounts.h"

namespace vaktor::faux {

class LecteurComptesFaux : public LecteurComptes {
 public:
  QList<CompteMail> LitComptes() override {
    ++Lectures;
    return Comptes;
  }
  /// One more account. The first is not the default one by itself.
  CompteMail& Ajoute(const QString& serveur, const QString& adresse, const QString& utilisateur = {},
                     qint32 port = 25) {
    Comptes.append({.Serveur = serveur, .Adresse = adresse, .Utilisateur = utilisateur, .Port = port});
    return Comptes.last();
  }

  QList<CompteMail> Comptes;
  int Lectures = 0;
};

}  // namespace vaktor::faux
