// SPDX-License-Identifier: GPL-3.0-or-later
// Drafts that the disk would not let become mails. Nobody else looks at a draft of a living companion.
#pragma once

#include <QMap>
#include <optional>

#include "modules/mail/drafts.h"

namespace vaktor {

/// What a publication that fails (EIO, a full disk) leaves behind is kept in mind and tried again. One thread; the
/// owner asks from time to time.
class BrouillonsEnRetard {
 public:
  BrouillonsEnRetard(SacPostal sac, LecteurPhotos& photos) : Sac_(std::move(sac)), Photos_(photos) {}

  /// The draft of `nom`, made at `faitA` (milliseconds since 1970), may leave: see PublieBrouillon. After an error of
  /// the mail it is one of those that Reessaie tries.
  Publication Publie(const QString& nom, qint64 faitA);
  /// How many of them may be sent now.
  int Reessaie();
  /// When the oldest of them was made.
  std::optional<qint64> PlusAncien() const;

 private:
  SacPostal Sac_;
  LecteurPhotos& Photos_;
  QMap<QString, qint64> Noms_;  // with the time at which each was made
};

}  // namespace vaktor
