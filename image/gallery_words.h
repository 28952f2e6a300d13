// SPDX-License-Identifier: GPL-3.0-or-later
// Words of the gallery that the numbered tables do not hold: what stands in the place of a picture that cannot be
// shown, and what is said of photos that resist.
#pragma once

#include <QString>
#include <QStringList>

#include "image/ports/photo_eraser.h"
#include "image/ports/photo_names.h"
#include "image/ports/photo_reader.h"
#include "texts/language.h"

namespace vaktor {

/// Stands in the place of the picture. Empty for kLue.
QString AvisPhoto(Langue langue, EtatPhoto etat, const QString& nom);
/// Stands on a picture that is damaged. Empty for kAucun.
QString AvisDommage(Langue langue, Dommage defaut);
/// Stands there while the folder has no photo and none was shown yet.
QString AvisAucunePhoto(Langue langue);
/// Stands there while the disk of the folder keeps its reader waiting.
QString AvisSansReponse(Langue langue, const QString& dossier);
/// One sentence for a message.
QString DitPhotoImpossible(Langue langue, EtatPhoto etat, const QString& nom);
/// Empty for kLus and kSansReponse.
QString DitLectureImpossible(Langue langue, EtatNoms etat, const QString& dossier);
/// Names the photos that could not be deleted, the first ten of them, and counts the rest.
QString DitPhotosRestees(Langue langue, const QStringList& noms);
/// Why a deletion ended before its last photo, and these names. Not for kFait.
QString DitEffacementArrete(Langue langue, EtatEffacement etat, const QStringList& noms);
/// The button that opens the timeline, and what it does, with its key.
QString MotFrise(Langue langue);
QString AideFrise(Langue langue);
/// The list and the progress window, for those who hear the window.
QString MotListePhotos(Langue langue);
QString MotEffacement(Langue langue);
/// The place of the picture, likewise.
QString MotPhotoMontree(Langue langue);

}  // namespace vaktor
