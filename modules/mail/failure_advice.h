// SPDX-License-Identifier: GPL-3.0-or-later
// What a failed mail means, in one sentence, and what to do about it, in both languages.
#pragma once

#include <QString>

#include "modules/common/failure_notice.h"
#include "modules/mail/sending.h"
#include "texts/phrase.h"

namespace vaktor {

/// For the status file and the notification. The subject is the name of the cause ("mail-login"). Holds neither user
/// name nor password, except where the server quotes them: the status file hides the password there.
AvisEchec ComposeAvis(const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages);
/// The same for a rehearsal: nothing of it is kept or sent again, and it has no photos.
AvisEchec ComposeAvisEssai(const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages);
/// What a rehearsal adds to a mail that was taken: whether its way to the server was encrypted, and what to choose if
/// it was not. Nothing of a mail that the system's own program has taken.
PhraseDite DitChiffrement(const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages);

/// The outbox cannot be written; `mots` are those of the system.
AvisEchec ComposeAvisDisque(const QString& dossier, const QString& mots);

/// The disk of the photos does not answer.
AvisEchec ComposeAvisPhotos(const QString& dossier);

/// A message of the watch was none; `dossier`: where it is kept.
AvisEchec ComposeAvisVeille(const QString& dossier);

}  // namespace vaktor
