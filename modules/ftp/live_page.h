// SPDX-License-Identifier: GPL-3.0-or-later
// The page "live.html": valid HTML 5, nothing from anywhere but the folder that it lies in.
#pragma once

#include <QByteArray>
#include <QList>

#include "modules/ftp/published_photos.h"
#include "texts/phrase.h"

namespace vaktor {

inline constexpr QLatin1String kNomPage("live.html");
inline constexpr QLatin1String kNomLive("live.jpg");

struct ContenuPage {
  Langue Parlee = Langue::kFrancais;
  qint32 Couleur = 3;         ///< 0 red, 1 green, 2 blue, 3 gray, 4 brown, 5 yellow, 6 white; any other: gray
  qint32 Intervalle = 10000;  ///< milliseconds between two live images
  qint32 Largeur = 640;       ///< of the picture, pixels; so that the page does not jump while it loads
  qint32 Hauteur = 480;
  QList<PhotoPubliee> Photos;  ///< in the order in which they are shown
};

/// UTF-8. With a script the live image is replaced once the next one has loaded whole; without one the page loads
/// itself again. The script tells how old the image is, by two times of the server's own: that of the file and that of
/// the answer (RFC 9110, Last-Modified and Date), so that a visitor's clock need not be right. It says in words that
/// the image is old once three intervals are over, and says nothing of it where the server tells no times.
QByteArray CreePageLive(const ContenuPage& contenu);

/// "10", "0,5" or "0.5" seconds to milliseconds, 500 at least and an hour at most; what is no number counts as 10 s.
qint32 LitIntervalle(const QString& secondes);

}  // namespace vaktor
