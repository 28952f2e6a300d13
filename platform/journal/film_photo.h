// SPDX-License-Identifier: GPL-3.0-or-later
// A photo as a film takes it: the bytes of its file as they are, once they are known to be one whole picture.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QSize>
#include <QString>

namespace vaktor {

/// Of a photo's file; a larger one is none of ours.
inline constexpr qint64 kPhotoFilmMax = 64LL * 1024 * 1024;
/// An encoder would want several times as many bytes.
inline constexpr qint64 kPixelsFilmMax = 64'000'000;

/// The whole file of a photo and its size in pixels; an empty size for one that is none, or not whole.
struct PhotoDuFilm {
  QByteArray Octets;
  QSize Taille;
};

/// The size in pixels of one whole JPEG picture of at most kPixelsFilmMax; empty for any other bytes. Any thread; no
/// pixel is decoded.
QSize MesurePhotoDuFilm(QByteArrayView octets);

/// Any thread; waits as long as the disk does. `chemin` in its stored form.
PhotoDuFilm LitPhotoDuFilm(const QString& chemin);

}  // namespace vaktor
