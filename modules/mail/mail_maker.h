// SPDX-License-Identifier: GPL-3.0-or-later
// From the user's settings to a mail.
#pragma once

#include "modules/common/module_folders.h"
#include "modules/mail/mime_message.h"
#include "modules/mail/outbox.h"
#include "modules/mail/sending.h"
#include "settings/parameters.h"
#include "texts/language.h"

namespace vaktor {

/// The settings as the mail companion uses them.
struct ReglagesCourriel {
  ReglagesEnvoi Envoi;
  Enveloppe Adresses;
  QStringList AdressesFausses =
      {};  ///< what stands in the fields of the addresses and is none; the others get the mail
  QString Sujet;
  QString Corps;
  int NombrePhoto = 10;
  int NombreMail = 1;
  Langue Parlee = Langue::kFrancais;
  QString DossierPhotos;    ///< native path: the photo folder, or the live copies when photos are off
  bool GardePhotos = true;  ///< that is the user's own folder, in which they stay
  QString Ardoise = {};     ///< the file in which the main program says what it knows of the intrusion
  /// Somebody to send to. A sender that is missing is asked for when the mail is sent: the settings may have one by
  /// then.
  bool PeutEcrire() const { return !Adresses.Destinataires.isEmpty(); }
  bool operator==(const ReglagesCourriel&) const = default;
};

/// Words to it do not leave the machine: "localhost" (RFC 6761, 6.3), 127.x.y.z (RFC 1122, 3.2.1.3), "::1" (RFC 4291,
/// 2.5.3). "127.exemple.fr" is a name.
bool EstCetteMachine(const QString& serveur);

/// `autorites` see ReglagesEnvoi::FichierAutorites. A count that is no number is the one of a first run; a port that is
/// none is 0.
ReglagesCourriel TraduitReglages(const Parametres& valeurs, const DossiersModule& dossiers, const QString& autorites);

/// What goes to a server of a mail in the outbox, with the settings of now.
struct CourrielPret {
  Enveloppe Adresses;
  QByteArray Message;
};

/// The sender is that of the account which sends, whichever it was when the mail was made; where both are missing the
/// mail stays incomplete. A mail that was found too large goes without its photos, and says so.
CourrielPret PrepareEnvoi(const CourrielEnAttente& courriel, const QByteArray& message, const ReglagesEnvoi& reglages);

/// The password in the forms in which it travels: none of them belongs into a log or a status file.
QStringList DonneSecrets(const ReglagesEnvoi& reglages);

/// Of a whole mail: base64 makes a third more of the photos.
constexpr qint64 kOctetsCourrielMax = 15LL * 1024 * 1024;
constexpr qint64 kOctetsPhotosMax = kOctetsCourrielMax / 4 * 3 - 512LL * 1024;

}  // namespace vaktor
