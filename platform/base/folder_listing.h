// The names of the files of a folder of tens of thousands, sorted, in a hundredth of a second for each ten thousand.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <atomic>
#include <optional>

namespace vaktor {

/// `dossier` as the system names it. Files and links to files whose names match `motif`, in which "*" stands for any
/// text; sorted by name; upper and lower case are the same in both. Names that begin with a dot are left out. Nothing
/// when the folder cannot be read, or when `abandon` becomes true meanwhile. From any thread; for a disk that does not
/// answer it lasts for ever.
std::optional<QStringList> ListeDossier(const QByteArray& dossier, const QString& motif,
                                        const std::atomic<bool>& abandon);

}  // namespace vaktor
