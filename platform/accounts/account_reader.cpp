// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/accounts/account_reader.h"

#include <QDir>
#include <QStandardPaths>

#include "platform/accounts/evolution_accounts.h"
#include "platform/accounts/thunderbird_accounts.h"

namespace vaktor {

LieuxComptes TrouveLieuxComptes() {
  return {QDir::homePath(), QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)};
}

QList<CompteMail> LitTousLesComptes(const LieuxComptes& lieux) {
  const QString paquets = lieux.Domicile + QStringLiteral("/.var/app");  // where Flatpak keeps the homes
  ListeComptes liste;
  BudgetLecture thunderbird{kBudgetThunderbird};
  for (const QString& racine :
       {lieux.Domicile + QStringLiteral("/.thunderbird"), lieux.Configuration + QStringLiteral("/thunderbird"),
        lieux.Domicile + QStringLiteral("/snap/thunderbird/common/.thunderbird"),
        paquets + QStringLiteral("/org.mozilla.Thunderbird/.thunderbird"),
        paquets + QStringLiteral("/org.mozilla.thunderbird/.thunderbird")}) {
    for (const QString& profil : TrouveProfils(racine, thunderbird)) LitProfilThunderbird(profil, thunderbird, liste);
  }
  BudgetLecture evolution{kBudgetEvolution};
  for (const QString& config : {lieux.Configuration, paquets + QStringLiteral("/org.gnome.Evolution/config")}) {
    LitComptesEvolution(config + QStringLiteral("/evolution/sources"), evolution, liste);
  }
  return liste.Comptes();
}

QList<CompteMail> LecteurComptesBorne::LitComptes() {
  return Travaux_.Attend<QList<CompteMail>>(Lit_, Patience_).value_or(QList<CompteMail>{});
}

}  // namespace vaktor
