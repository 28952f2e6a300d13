// SPDX-License-Identifier: GPL-3.0-or-later
// The names of the files of a folder of tens of thousands, sorted, in a hundredth of a second for each ten thousand.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <atomic>

namespace vaktor {

/// What could be read of a folder.
struct DossierListe {
  QStringList Noms = {};  ///< without an error, or after one those that came before it
  int Erreur = 0;         ///< errno; ECANCELED when `abandon` became true
  bool Commence = false;  ///< the folder was opened: the error came on the way
};

/// `dossier` as the system names it. Files and links to files whose names match `motif`, in which "*" stands for any
/// text; sorted by name; upper and lower case are the same in both. Names that begin with a dot are left out. Stops
/// when `abandon` becomes true. From any thread; for a disk that does not answer it lasts for ever.
DossierListe ListeDossier(const QByteArray& dossier, const QString& motif, const std::atomic<bool>& abandon);

}  // namespace vaktor
