// SPDX-License-Identifier: GPL-3.0-or-later
// What the system says of one folder. Blocking calls, from any thread: for a disk that does not answer they last for
// ever.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>

#include "image/ports/folder_tree.h"

namespace vaktor {

/// kBon, kAbsent or kInterdit.
EtatDossier RegardeUnDossier(const QByteArray& chemin);

/// Writes one photo's worth of bytes into a file of the folder that no other program sees, or sees only for that
/// moment, and takes it away again. Any state but kSansReponse.
EtatDossier EssaieUneEcriture(const QByteArray& chemin);

/// Subfolders without hidden ones and those that cannot be stored, in the order of the disk. `recoit` comes once, or
/// twice when there are links to look at (incomplete with the folders, complete with all); links may lead to a dead
/// disk.
void LitUnDossier(const QByteArray& chemin, const ArbreDossiers::RecoitDossiers& recoit);

}  // namespace vaktor
