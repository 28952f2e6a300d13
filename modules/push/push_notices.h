// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the pushes: of one, and of what went wrong with it.
#pragma once

#include <QTime>

#include "modules/common/failure_notice.h"
#include "modules/push/push_sender.h"

namespace vaktor {

/// What stands beside the picture.
QString TextePush(Langue langue, const QTime& heure);
AvisEchec ComposeAvisPush(const ResultatPush& resultat, const QString& hote);
AvisEchec ComposeAvisManque(ManquePush manque);
/// How a rehearsal ended: one sentence. `reglages`: those that were tried; `sansImage`: only the words were taken.
QString DitFinEssaiPush(Langue langue, const ResultatPush& resultat, const ReglagesPush& reglages, bool sansImage);
/// No address was given at all.
QString DitSansPush(Langue langue);
/// Title of what a rehearsal sends is the user's; this is its text.
QString TexteEssaiPush(Langue langue, const QTime& heure);
/// `mots`: the system's.
AvisEchec ComposeAvisSac(const QString& dossier, const QString& mots);
AvisEchec ComposeAvisSansPhoto(const QString& dossier, const QString& mots);

}  // namespace vaktor
