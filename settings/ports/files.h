// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the few file operations that rules need. Paths come in the forms that the program stores and passes on, with
// "/" or "\" between folders; the real implementation turns them into the system's own at this border and nowhere else.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>

namespace vaktor {

/// What is known of a folder.
enum class Presence {
  kLa,
  kAbsent,
  kSansReponse  ///< its disk does not answer; one that only sleeps looks the same
};

class Fichiers {
 public:
  virtual ~Fichiers() = default;
  /// True when a file or folder of this name exists.
  virtual bool Existe(const QString& chemin) const = 0;
  /// Whether a folder of this name is there; a file of that name, in which nothing can be put, is none. For who must
  /// tell one that has gone from one of which nothing can be said; never kSansReponse where the call waits as long as
  /// the disk does.
  virtual Presence RegardeDossier(const QString& chemin) const = 0;
  /// Makes one folder; its parent must exist. False when it could not be made or was there already.
  virtual bool CreeDossier(const QString& chemin) = 0;
  /// Free bytes in all on the file system that holds `chemin`, also those that this user may not fill; nothing when
  /// that cannot be told.
  virtual std::optional<qint64> EspaceLibre(const QString& chemin) const = 0;
  /// The same without what is kept back for the administrator, which may be gigabytes: at 0 nothing more is written.
  virtual std::optional<qint64> EspaceUtilisable(const QString& chemin) const = 0;
  /// Removes one file. False when it is still there.
  virtual bool Supprime(const QString& chemin) = 0;
  /// Writes the bytes as the whole content of a file, replacing an earlier one. 0 when every byte is written and the
  /// file closed, else the system's error number (errno), with a partly written file left as it is.
  virtual int EcritFichier(const QString& chemin, QByteArrayView contenu) = 0;
  /// The same, but a file that is there already is left alone: the new one takes the next free name beside it
  /// (base/next_name.h), which `devenu`, where given, becomes when 0 is returned: a path with "/" between folders. For
  /// what has to stay: its way to the disk itself begins at once.
  virtual int EcritNouveauFichier(const QString& chemin, QByteArrayView contenu, QString* devenu = nullptr) = 0;
};

}  // namespace vaktor
