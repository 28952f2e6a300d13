// SPDX-License-Identifier: GPL-3.0-or-later
// The SMTP settings as their form treats them: which fields can be used, what a typed port becomes, what is still
// missing, and the request of a rehearsal.
#pragma once

#include <QByteArray>
#include <QString>

#include "settings/parameters.h"

namespace vaktor {

/// Enabled (and white, as far as they are fields) or disabled (and grey).
struct ChampsSmtp {
  bool Serveur = false;    ///< the list of accounts, the box of the login; sender, server, port
  bool Connexion = false;  ///< user name and password
  bool operator==(const ChampsSmtp&) const = default;
};
ChampsSmtp DonneChampsSmtp(const Parametres& reglages);

/// The port field: a text with any character other than 0 to 9, a blank included, becomes "25". An empty one stays.
QString CorrigePortSmtp(const QString& texte);

/// What stands in the fields when the form is closed: the fields themselves, blanks included, not the settings.
struct TextesSmtp {
  QString Serveur, Expediteur, Utilisateur, MotDePasse;
  QString Jeton = {};  ///< takes the place of a password
};
/// The server that was begun and not finished counts as none; only that exact text does.
bool ManqueServeur(const TextesSmtp& textes);
/// A push and no mail: nothing of a server for mails was given, and nothing of it is missing.
bool VeutPushSeul(const Parametres& reglages);
bool ManqueConnexion(const TextesSmtp& textes);

/// One JSON object with the keys that "VAKTORmail --try" reads, the password in clear. `destination`: where the mail
/// goes, since the field of the main window may show a prompt instead of an address.
QByteArray ComposeDemandeEssai(const Parametres& reglages, const QString& destination);
/// The same for a push, whose header lets in like a password.
QByteArray ComposeDemandeEssaiPush(const Parametres& reglages);

}  // namespace vaktor
