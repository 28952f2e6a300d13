// The names of the files of a folder, fast: detection waits while a folder of tens of thousands is read.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace vaktor {

/// `dossier` as the system names it. Files and links to files whose names match `motif`, in which "*" stands for any
/// text; sorted by name; upper and lower case are the same in both. Names that begin with a dot are left out. Empty
/// when the folder cannot be read.
QStringList ListeDossier(const QByteArray& dossier, const QString& motif);

/// True when the names of the folder can be read.
bool PeutListerDossier(const QByteArray& dossier);

}  // namespace vaktor
