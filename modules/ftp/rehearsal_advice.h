// SPDX-License-Identifier: GPL-3.0-or-later
// How a rehearsal of the live page ended, in one sentence, with what to change.
#pragma once

#include <QString>
#include <QStringList>

#include "modules/ftp/ftp_access.h"
#include "texts/language.h"

namespace vaktor {

enum class CauseEssai {
  kReussi,
  kReste,  ///< all went well, but the file of the trial cannot be deleted
  kSansServeur,
  kAdresse,
  kWeb,  ///< an address of the web
  kSansUtilisateur,
  kSansMotDePasse,
  kSigne,
  kSansReseau,
  kServeurInconnu,
  kPersonne,    ///< the port is closed
  kMuet,        ///< nobody answers at all
  kPasFtp,      ///< who answers speaks something else
  kEcarte,      ///< turns us away instead of a greeting
  kComplet,     ///< too many connections
  kCertificat,  ///< cannot be trusted
  kTls,
  kTlsPerdu,      ///< it was encrypted once
  kCleHote,       ///< the SSH server has another key than before
  kMemoire,       ///< what it has shown before cannot be read
  kAcces,         ///< user name or password
  kDossier,       ///< the folder does not exist
  kDonnees,       ///< passive mode
  kPlace,         ///< no space
  kRefus,         ///< the folder takes no file
  kRemplacement,  ///< it takes one, and lets none be renamed or replaced
  kTaille,        ///< it took the file and has less of it
  kDelai,         ///< silence in the middle
  kCoupure,       ///< broken in the middle
  kInterrompu
};

/// What stands in the sentence beside the cause.
struct DetailsEssai {
  AccesFtp Acces;
  QStringList Restes = {};  ///< files of the trial that may still lie there: told too
};

/// What a first attempt at the fields says before anybody is asked; kReussi for kRien.
CauseEssai DonneCauseManque(ManqueAcces manque);
/// For a failed job. `refuse`: the verb of the last command that was refused, empty for none; `salue`: the server has
/// greeted.
CauseEssai DonneCauseEchec(const ResultatFtp& resultat, const QByteArray& refuse, bool salue);

/// Holds neither user name nor password.
QString ComposePhraseEssai(CauseEssai cause, Langue langue, const DetailsEssai& details);

}  // namespace vaktor
