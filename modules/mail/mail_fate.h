// SPDX-License-Identifier: GPL-3.0-or-later
// What became of a mail so far: which of its addresses have it, which are refused, and how it goes on. A small file
// beside the mail, which itself is never changed.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace vaktor {

struct SortCourriel {
  QStringList Servis;   ///< they have it: never again
  QStringList Refuses;  ///< refused for good
  QStringList Ajoutes;  ///< addresses of other settings, in the place of those that were refused
  bool Allege = false;  ///< too large for a server: it goes without its photos
  qint64 RefuseA = 0;   ///< when it was put aside, milliseconds since 1970
  bool operator==(const SortCourriel&) const = default;
};

/// Who is still to get a mail to `destinataires`.
QStringList DonneRestants(const QStringList& destinataires, const SortCourriel& sort);

/// All have it, but for those whom other addresses have replaced.
bool EstSolde(const QStringList& destinataires, const SortCourriel& sort);

/// Another attempt with `adresses`, those of the settings: what was refused is asked again, unless the user has put
/// another address into the settings meanwhile; then the mail goes there instead. Without `adresses` it only goes on.
SortCourriel RecommenceSort(const QStringList& destinataires, SortCourriel sort, const QStringList& adresses);

/// An empty one where there is no such file, and for a damaged one: all are asked again then. Nothing for one that
/// cannot be read at this moment.
std::optional<SortCourriel> LitSort(const QString& chemin);
/// Gives the system's error number, 0 when it is on the disk.
int EcritSort(const QString& chemin, const SortCourriel& sort);

}  // namespace vaktor
