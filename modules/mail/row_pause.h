// SPDX-License-Identifier: GPL-3.0-or-later
// The pause behind a row of mails outlives the companion: one that is started again does not begin a new row at once.
#pragma once

#include <QString>

namespace vaktor {

/// Writes down that a row has ended `maintenant` (milliseconds since 1970). A disk that does not take it is passed
/// over: the pause then lasts as long as the process.
void NotePause(const QString& dossier, qint64 maintenant);

/// What is left of a pause of `duree` milliseconds; 0 where there is none, and where it would begin in the future: the
/// clock was set back.
qint32 DonneResteDePause(const QString& dossier, qint64 maintenant, qint32 duree);

}  // namespace vaktor
