// SPDX-License-Identifier: GPL-3.0-or-later
// The address of the server as people write it.
#pragma once

#include <QString>

namespace vaktor {

struct AdresseServeur {
  QString Hote;         ///< name or literal address, an IPv6 one without its brackets; empty when there is none
  quint16 Port = 21;    ///< RFC 959
  bool Valable = true;  ///< false: a port that is none, or characters that no host name has
};

/// Takes "host", "host:2121", "ftp://user@host/folder/", "[::1]:2121" and "::1". Scheme, user and folder are cut off.
/// "ftp." alone, the start of a name that was never finished, is no address.
AdresseServeur LitAdresseServeur(const QString& texte);

/// True for "localhost" and for addresses in digits: for them no name has to be looked up and no network has to be up.
bool EstSansRecherche(const QString& hote);

}  // namespace vaktor
