// SPDX-License-Identifier: GPL-3.0-or-later
// Port: deletes photos without holding up the window.
#pragma once

#include <QStringList>
#include <functional>

namespace vaktor {

/// How a slice of a deletion ended.
enum class EtatEffacement {
  kFait,
  kSansMoyens,  ///< this machine has no thread or no memory for it at the moment
  kSansReponse  ///< the disk has not answered for two seconds
};

struct TrancheEffacee {
  EtatEffacement Etat = EtatEffacement::kSansMoyens;
  qsizetype Essayees = 0;  ///< photos of the slice that were tried, whether they are gone or not; kFait: one or more
};

/// User-interface thread.
class EffaceurPhotos {
 public:
  using Recoit = std::function<void(const TrancheEffacee&)>;

  virtual ~EffaceurPhotos() = default;
  /// Deletes the files of `chemins` (stored form) from `debut` on, which is one of them: a slice as EffaceTranche makes
  /// it. Calls `recoit` once, from the event loop, later; the slice is over then. After kSansReponse the photo in hand
  /// may still go when the disk wakes, and none behind it. One slice at a time.
  virtual void Efface(const QStringList& chemins, qsizetype debut, Recoit recoit) = 0;
  /// Forgets the slice that is under way: it ends before its next photo and tells nobody.
  virtual void Oublie() = 0;
};

}  // namespace vaktor
