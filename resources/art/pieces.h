// SPDX-License-Identifier: GPL-3.0-or-later
// The pieces of the product's art. Each function draws one family and writes it below `dossier`/1x and `dossier`/2x.
#pragma once

#include <QString>

namespace vaktor::art {

void DessineSkins(const QString& dossier);      ///< SKIN0, SKIN1, SKIN2
void DessineBoutons(const QString& dossier);    ///< PictBlue and PictGrey, three faces each
void DessineLampes(const QString& dossier);     ///< LEDRED, LEDREDON, LEDVERT
void DessineDrapeaux(const QString& dossier);   ///< the flags of the two languages
void DessineSignes(const QString& dossier);     ///< SANTE0, SANTE1, SANTE2: blind, lame, notice
void DessinePagesPlan(const QString& dossier);  ///< the near-white bitmaps of the four pages
void DessineFonds(const QString& dossier);      ///< gallery backgrounds, time stamp, loudspeaker, splash
void DessineIcone(const QString& dossier);      ///< the application's icon, 16 to 256 pixels

}  // namespace vaktor::art
