// SPDX-License-Identifier: GPL-3.0-or-later
// The request of a rehearsal of the live page.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// What stands in the fields of the FTP page, saved or not.
struct ChampsEssaiFtp {
  QString Serveur, Utilisateur, MotDePasse, Dossier;
};

/// One JSON object with the keys that "VAKTORftp --try" reads, the password in clear.
QByteArray ComposeDemandeEssaiFtp(const ChampsEssaiFtp& champs, qint32 langue);

}  // namespace vaktor
