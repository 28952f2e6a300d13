// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the program on the real file system.
#pragma once

#include "settings/ports/files.h"

namespace vaktor {

/// Stored path to native path: every "\" becomes "/". A folder whose own name holds a "\" can therefore not be used.
QString CheminNatif(const QString& chemin);

/// Blocking calls, from any thread; holds nothing. Names go to the system as UTF-8.
class FichiersSysteme : public Fichiers {
 public:
  bool Existe(const QString& chemin) const override;
  /// A link to a folder is one.
  Presence RegardeDossier(const QString& chemin) const override;
  bool CreeDossier(const QString& chemin) override;
  /// Of both: `chemin` itself must exist.
  std::optional<qint64> EspaceLibre(const QString& chemin) const override;
  std::optional<qint64> EspaceUtilisable(const QString& chemin) const override;
  bool Supprime(const QString& chemin) override;
  /// Returns when the system has taken every byte; it is not told to flush its own cache, which would cost far more
  /// than a frame lasts. New files get mode 0666 less the umask.
  int EcritFichier(const QString& chemin, QByteArrayView contenu) override;
  /// The same; nobody asks for the disk itself here (platform/disk does).
  int EcritNouveauFichier(const QString& chemin, QByteArrayView contenu, QString* devenu = nullptr) override;
};

/// The two writings on native names, 0 or errno.
int RemplaceFichier(const QByteArray& nom, QByteArrayView contenu);
/// `nom` becomes the name that the file got, for it may be one beside. One that could not be written whole stays
/// as far as it came.
int CreeFichier(QByteArray& nom, QByteArrayView contenu);

}  // namespace vaktor
