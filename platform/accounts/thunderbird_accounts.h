// SPDX-License-Identifier: GPL-3.0-or-later
// The accounts of Thunderbird. Formats: profiles.ini and installs (toolkit/profile of Mozilla's sources), prefs.js
// (mailnews/base: mail.accountmanager, mail.account, mail.identity; mailnews/compose: mail.smtpserver).
#pragma once

#include <QString>
#include <QStringList>

#include "platform/accounts/account_list.h"
#include "platform/accounts/foreign_file.h"
#include "platform/accounts/mozilla_prefs.h"

namespace vaktor {

inline constexpr qint64 kListeProfilsMax = 256LL * 1024;
inline constexpr qsizetype kProfilsMax = 32;
inline constexpr qsizetype kComptesVusMax = 10'000;

/// The profile folders of `racine`, a folder with a profiles.ini: first those that an installation starts with, then
/// the one marked as default, then the others; kProfilsMax at most.
QStringList TrouveProfils(const QString& racine, BudgetLecture& budget);

/// Adds the accounts of one profile, the default one first and the second identities of all accounts last.
void AjouteComptes(const Prefs& prefs, ListeComptes& liste);

/// The same from prefs.js in the folder `profil`. Nothing else is opened there: no file that holds passwords.
void LitProfilThunderbird(const QString& profil, BudgetLecture& budget, ListeComptes& liste);

}  // namespace vaktor
