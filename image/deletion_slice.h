// SPDX-License-Identifier: GPL-3.0-or-later
// One slice of a deletion: events run between slices, so how long one lasts is how late the window may learn that the
// deletion is to stop, and how often its bar moves.
#pragma once

#include <QStringList>
#include <functional>

namespace vaktor {

/// By time and not by count: a hundred photos are a millisecond on a fast disk and a minute on a slow one.
inline constexpr qint64 kMillisecondesTranche = 20;

struct OutilsTranche {
  std::function<qint64()> Millisecondes;                ///< a clock that only goes forward
  std::function<void(const QString& chemin)> Supprime;  ///< the file may resist
  std::function<bool()> Abandonnee;                     ///< asked before each photo
  std::function<void()> Essayee;                        ///< told after each
};

/// Deletes `chemins` from `debut` on, one after the other, until kMillisecondesTranche have passed: one at least,
/// unless the slice is abandoned before. An empty path is passed over and counts as tried. Gives the number of those
/// tried.
inline qsizetype EffaceTranche(const QStringList& chemins, qsizetype debut, const OutilsTranche& outils) {
  const qint64 fin = outils.Millisecondes() + kMillisecondesTranche;
  qsizetype i = debut;
  while (i < chemins.size() && !outils.Abandonnee()) {
    if (!chemins.at(i).isEmpty()) outils.Supprime(chemins.at(i));
    ++i;
    outils.Essayee();
    if (outils.Millisecondes() >= fin) break;
  }
  return i - debut;
}

}  // namespace vaktor
