// SPDX-License-Identifier: GPL-3.0-or-later
// From what the user has typed to what a connection needs.
#pragma once

#include "modules/ftp/ftp_worker.h"
#include "settings/parameters.h"

namespace vaktor {

/// What a connection cannot do without, or must not have.
enum class ManqueAcces {
  kRien,
  kServeur,      ///< no address
  kAdresse,      ///< an address that is none: a bad port, characters that no host name has
  kWeb,          ///< an address of the web: WebDAV, perhaps, which is not spoken here
  kUtilisateur,  ///< no user name
  kMotDePasse,   ///< no password
  kSigne         ///< a line break or the like, which would become a command to the server
};

struct AccesLu {
  AccesFtp Acces;
  ManqueAcces Manque = ManqueAcces::kRien;  ///< the first one found; anything but kRien: not to be used
};

/// Of the settings only those of the live page's server count: address, user name, password in clear, folder.
AccesLu LitAcces(const Parametres& valeurs);

}  // namespace vaktor
