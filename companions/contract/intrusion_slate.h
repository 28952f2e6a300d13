// SPDX-License-Identifier: GPL-3.0-or-later
// The slate: what the main program knows of the intrusion of now, for the mails of it. One file, written anew as the
// intrusion goes on. docs/companions.md tells the same to companions of the user's own.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QLatin1String>
#include <QList>
#include <QRect>
#include <QSize>
#include <QString>
#include <optional>

namespace vaktor {

/// Beside the status files of the companions.
inline constexpr QLatin1String kFichierArdoise("intrusion.json");
/// Photos that it holds: those of the most movement.
inline constexpr qsizetype kPhotosArdoise = 64;
/// A larger file is none.
inline constexpr qint64 kOctetsArdoise = qint64{64} * 1024;
/// Milliseconds behind its last frame in which a report still belongs to the intrusion.
inline constexpr qint64 kReposArdoise = 12'000;

struct PhotoArdoise {
  QString Nom;        ///< of the file, as it was written
  qint32 Points = 0;  ///< changed samples of its frame
  QRect Cadre;        ///< of the movement, pixels of the photo

  bool operator==(const PhotoArdoise&) const = default;
};

struct ArdoiseIntrusion {
  QDateTime Depuis;            ///< its first frame
  QDateTime Jusqua;            ///< its last one so far
  QSize Taille;                ///< of the photos, pixels; empty: not known
  QList<PhotoArdoise> Photos;  ///< most changed samples first

  bool operator==(const ArdoiseIntrusion&) const = default;
};

QByteArray EcritArdoise(const ArdoiseIntrusion& ardoise);
/// Any bytes. Nothing for what is torn, too large or of another version.
std::optional<ArdoiseIntrusion> LitArdoise(QByteArrayView octets);
/// Whether a report of that moment (milliseconds since 1970) is of this intrusion: an old slate, and one that another
/// clock has written, say nothing about it.
bool EstDeCetteIntrusion(const ArdoiseIntrusion& ardoise, qint64 instant);

}  // namespace vaktor
