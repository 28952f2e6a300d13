// SPDX-License-Identifier: GPL-3.0-or-later
// Why photos cannot be written, for the list of what is wrong.
#pragma once

#include <QString>

#include "base/failure.h"
#include "texts/language.h"

namespace vaktor {

/// "/home/anna/photos: the disk is full". The folder comes in its stored form.
QString DitPannePhotos(Langue langue, const QString& dossier, const Echec& echec);
/// The same of photos that were written and then lost on their way to the disk, with the system's error number.
QString DitPertePhotos(Langue langue, const QString& dossier, int erreur);
/// A folder of its stored form as people read it.
QString DitDossier(const QString& dossier);

}  // namespace vaktor
