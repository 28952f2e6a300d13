// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the folders of this machine as a person picks one among them. No call waits long for a disk: a network volume
// whose server has gone must not take the windows with it.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

class QObject;

namespace vaktor {

/// A place to start from: the user's home, a mounted volume, the root of all.
struct LieuDisque {
  QString Nom;     ///< for a person: the name of the volume
  QString Chemin;  ///< native and absolute

  bool operator==(const LieuDisque&) const = default;
};

/// What can be said of a folder.
enum class EtatDossier {
  kBon,
  kAbsent,        ///< not there (any more), or no folder, or its disk fails
  kInterdit,      ///< this user may not
  kLectureSeule,  ///< its file system takes no writes
  kPlein,         ///< no room, or no room for this user
  kSansReponse    ///< its disk does not answer; a disk that only sleeps looks the same
};

/// User-interface thread. Paths are native, absolute and tidy unless told otherwise.
class ArbreDossiers {
 public:
  /// What a folder holds.
  struct Contenu {
    QStringList Noms = {};                 ///< of its subfolders, without order
    bool Complet = true;                   ///< false: links among them are still being looked at, a longer list follows
    EtatDossier Etat = EtatDossier::kBon;  ///< kAbsent or kInterdit: it could not be read, or not to its end
  };
  using RecoitDossiers = std::function<void(const Contenu& contenu)>;

  virtual ~ArbreDossiers() = default;
  /// Home first, then the volumes by name, the root last; never empty. Touches no disk.
  virtual QList<LieuDisque> ListeLieux() const = 0;
  /// A path in its stored form, or joined from pieces, as one native, absolute path without ".." or doubled
  /// separators. The empty text stays empty. Touches no disk.
  virtual QString DonneChemin(const QString& stocke) const = 0;
  /// Whether a folder is there. kBon, kAbsent, kInterdit or kSansReponse; within a second.
  virtual EtatDossier RegardeDossier(const QString& chemin) const = 0;
  /// Whether a photo could be written there, by writing one's worth of bytes and taking them away again; within two
  /// seconds.
  virtual EtatDossier EssaieEcriture(const QString& chemin) const = 0;
  /// Makes the folder of a path in its stored form; its parent must exist. False when it could not be made, was there
  /// already, or its disk does not answer; within a second.
  virtual bool CreeDossier(const QString& stocke) = 0;
  /// Bytes free in all on the disk of a folder; nothing when that cannot be told within a second.
  virtual std::optional<qint64> EspaceLibre(const QString& chemin) const = 0;
  /// Reads the subfolders in the background and calls `recoit`, later and from the event loop, once or twice; never
  /// after `pour` has gone, and never when the disk does not answer. Left out: hidden folders, and those whose name
  /// cannot be a part of a stored path.
  virtual void LitDossiers(const QString& chemin, const QObject* pour, RecoitDossiers recoit) = 0;
};

}  // namespace vaktor
