// SPDX-License-Identifier: GPL-3.0-or-later
// What the name of a photo tells: the day on which the program started, the time of day, the number.
#pragma once

#include <QDate>
#include <QString>
#include <QTime>
#include <optional>

namespace vaktor {

struct NomPhoto {
  QDate Jour;  ///< of the start of the program: a photo taken after midnight has the day before
  QTime Heure;
  qint32 Numero = 0;

  bool operator==(const NomPhoto&) const = default;
};

/// "2026-11-15  14-05-09 Photo 00003.jpg", with or without a letter behind the number. Nothing for any other name.
std::optional<NomPhoto> LitNomPhoto(QStringView nom);

}  // namespace vaktor
