// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the names of the photos of a folder, read without holding up the window.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace vaktor {

/// How the reading of a folder went.
enum class EtatNoms {
  kLus,
  kIllisible,     ///< not there (any more), no folder, or this user may not read it
  kErreurDisque,  ///< the disk failed on the way: Noms are those before the failure
  kSansMoyens,    ///< this machine has no thread or no memory for it at the moment: says nothing of the folder
  kSansReponse    ///< the disk has not answered for some seconds; the names may still come
};

struct NomsPhotos {
  EtatNoms Etat = EtatNoms::kIllisible;
  QStringList Noms = {};  ///< kLus, kErreurDisque: without folder, sorted by name
};

/// User-interface thread.
class LecteurNoms {
 public:
  using Recoit = std::function<void(const NomsPhotos&)>;

  virtual ~LecteurNoms() = default;
  /// Reads the names of the files of a folder (in its stored form) that match a pattern such as "*.jpg*", where "*"
  /// stands for any text. Upper and lower case are the same for pattern and order; names that begin with a dot are left
  /// out. Calls `recoit` from the event loop, later: once, or kSansReponse and then once more. A reading that is still
  /// under way is forgotten and its `recoit` not called any more.
  virtual void LitNoms(const QString& dossier, const QString& motif, Recoit recoit) = 0;
  /// Forgets the reading that is under way, if there is one.
  virtual void Oublie() = 0;
};

}  // namespace vaktor
