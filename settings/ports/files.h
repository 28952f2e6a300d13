// Port: the few file operations that rules need. Paths come in the forms that the program stores and passes on, with
// "/" or "\" between folders; the real implementation turns them into the system's own at this border and nowhere else.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>

namespace vaktor {

class Fichiers {
 public:
  virtual ~Fichiers() = default;
  /// True when a file or folder of this name exists.
  virtual bool Existe(const QString& chemin) const = 0;
  /// Makes one folder; its parent must exist. False when it could not be made or was there already.
  virtual bool CreeDossier(const QString& chemin) = 0;
  /// Free bytes in all on the file system that holds `chemin`, also those that this user may not fill; nothing when
  /// that cannot be told.
  virtual std::optional<qint64> EspaceLibre(const QString& chemin) const = 0;
  /// Removes one file. False when it is still there.
  virtual bool Supprime(const QString& chemin) = 0;
  /// Writes the bytes as the whole content of a file, replacing an earlier one. 0 when every byte is written and the
  /// file closed, else the system's error number (errno), with a partly written file left as it is.
  virtual int EcritFichier(const QString& chemin, QByteArrayView contenu) = 0;
};

}  // namespace vaktor
