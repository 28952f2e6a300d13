// SPDX-License-Identifier: GPL-3.0-or-later
// Files of groups and keys: the profile list of Mozilla's programs and the sources of Evolution.
// Format: "[group]" lines, "key=value" lines; the key files of GLib and the "ini" files of Mozilla agree on that much.
#pragma once

#include <QByteArray>
#include <QList>

namespace vaktor {

struct GroupeCles {
  QByteArray Nom;
  QList<std::pair<QByteArray, QByteArray>> Lignes;  ///< in the order of the file, as they stand, as UTF-8
};

class FichierCles {
 public:
  /// Reads any bytes: lines that are neither a group, a key nor a comment, and keys before the first group, are passed
  /// over. Takes time in proportion to `octets`.
  explicit FichierCles(QByteArrayView octets);

  const QList<GroupeCles>& Groupes() const { return Groupes_; }
  bool AGroupe(QByteArrayView groupe) const;
  /// The last line of that name, as it stands; empty without one.
  QByteArray Valeur(QByteArrayView groupe, QByteArrayView cle) const;
  /// The same with the escapes of GLib taken back: "\s", "\n", "\t", "\r", "\\".
  QByteArray ValeurGlib(QByteArrayView groupe, QByteArrayView cle) const;

 private:
  QList<GroupeCles> Groupes_;
};

/// The last value of `cle` in one group; empty without one.
QByteArray ValeurDe(const GroupeCles& groupe, QByteArrayView cle);

}  // namespace vaktor
