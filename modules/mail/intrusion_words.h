// SPDX-License-Identifier: GPL-3.0-or-later
// What a mail says of its intrusion behind the user's own words.
#pragma once

#include <QString>

#include "companions/contract/intrusion_slate.h"
#include "texts/language.h"

namespace vaktor {

/// When it began, what the first picture shows and where to look in it, where the rest is. `tete`: name of the photo of
/// the most movement so far, which is the first of the mail; empty where there is none. `dossier`: of the photos, empty
/// where none are kept; where the slate knows of none it is not named. Lines end in LF.
QString DitIntrusionDuCourriel(const ArdoiseIntrusion& ardoise, const QString& tete, const QString& dossier,
                               Langue langue);

/// Where in a picture of `taille` the middle of a box lies; empty where either is not known.
QString DitEndroit(const QRect& cadre, const QSize& taille, Langue langue);

}  // namespace vaktor
