// SPDX-License-Identifier: GPL-3.0-or-later
// What the user is told of a failure, and the word for the main program.
#pragma once

#include "modules/common/failure_notice.h"
#include "modules/ftp/ftp_worker.h"

namespace vaktor {

/// The word of the channel for a connection that could not be made.
QString DonneMotEchec(IssueFtp issue);
/// In both languages, with what to do.
AvisEchec CreeAvis(const ResultatFtp& resultat, const AccesFtp& acces);
/// Server, user or password is missing.
AvisEchec CreeAvisIncomplet();
/// The server does not take the photos; they wait.
AvisEchec CreeAvisPhotos(const ResultatFtp& resultat);
/// Photos, or the live image, cannot be read here; they wait.
AvisEchec CreeAvisSource(const ResultatFtp& resultat);
/// A memory of this companion was damaged and lies beside.
AvisEchec CreeAvisMemoire(const QString& fichier);
/// Photos that waited were deleted, because too many did.
AvisEchec CreeAvisPlace();

}  // namespace vaktor
