// SPDX-License-Identifier: GPL-3.0-or-later
// Whole files in one call: what a test lays down and what it finds.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace vaktor::essai {

/// Empty where it cannot be read.
inline QByteArray LitOctets(const QString& chemin) {
  QFile fichier(chemin);
  return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

/// The same as UTF-8 text.
inline QString LitTexte(const QString& chemin) { return QString::fromUtf8(LitOctets(chemin)); }

/// False where not all of it was written.
inline bool EcritOctets(const QString& chemin, const QByteArray& octets) {
  QFile fichier(chemin);
  return fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size();
}

}  // namespace vaktor::essai
