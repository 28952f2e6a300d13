// Words of the gallery that the numbered tables do not hold: what stands in the place of a picture that cannot be
// shown, and what is said of photos that resist. By language: 1 English, any other number French.
#pragma once

#include <QString>
#include <QStringList>

#include "image/ports/photo_eraser.h"
#include "image/ports/photo_names.h"
#include "image/ports/photo_reader.h"

namespace vaktor {

/// Stands in the place of the picture. Empty for kLue.
QString AvisPhoto(qint32 langue, EtatPhoto etat, const QString& nom);
/// Stands on a picture that is damaged. Empty for kAucun.
QString AvisDommage(qint32 langue, Dommage defaut);
/// Stands there while the folder has no photo and none was shown yet.
QString AvisAucunePhoto(qint32 langue);
/// Stands there while the disk of the folder keeps its reader waiting.
QString AvisSansReponse(qint32 langue, const QString& dossier);
/// One sentence for a message.
QString DitPhotoImpossible(qint32 langue, EtatPhoto etat, const QString& nom);
/// Empty for kLus and kSansReponse.
QString DitLectureImpossible(qint32 langue, EtatNoms etat, const QString& dossier);
/// Names the photos that could not be deleted, the first ten of them, and counts the rest.
QString DitPhotosRestees(qint32 langue, const QStringList& noms);
/// Why a deletion ended before its last photo, and these names. Not for kFait.
QString DitEffacementArrete(qint32 langue, EtatEffacement etat, const QStringList& noms);
/// The list and the progress window, for those who hear the window.
QString MotListePhotos(qint32 langue);
QString MotEffacement(qint32 langue);

}  // namespace vaktor
