// SPDX-License-Identifier: GPL-3.0-or-later
// The address of the server as people write it.
#pragma once

#include <QString>

#include "modules/ftp/ftp_worker.h"

namespace vaktor {

struct AdresseServeur {
  QString Hote;       ///< name or literal address, an IPv6 one without its brackets; empty when there is none
  quint16 Port = 21;  ///< RFC 959
  ProtocoleFtp Protocole = ProtocoleFtp::kFtp;
  bool Web = false;     ///< an address of the web ("https://", port 443 or 80): what is spoken there is not ours
  bool Valable = true;  ///< false: a port that is none, or characters that no host name has
};

/// Takes "host", "host:2121", "ftp://user@host/folder/", "[::1]:2121" and "::1". Scheme, user and folder are cut off.
/// Port 990 is TLS from the first byte, port 22 or the scheme "sftp://" files over SSH; "ftps://" alone says nothing:
/// most who write it mean port 21.
/// "ftp." alone, the start of a name that was never finished, is no address.
AdresseServeur LitAdresseServeur(const QString& texte);

/// True for "localhost" and for addresses in digits: for them no name has to be looked up and no network has to be up.
bool EstSansRecherche(const QString& hote);

}  // namespace vaktor
