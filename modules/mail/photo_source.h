// SPDX-License-Identifier: GPL-3.0-or-later
// The photos on disk, as the mail takes them.
#pragma once

#include <QStringList>
#include <chrono>
#include <memory>
#include <optional>

#include "modules/mail/mail_policy.h"
#include "modules/mail/mime_message.h"

namespace vaktor {

/// All photos of the folder ("*.jpg", any case), native path. Empty for a folder that cannot be read.
QList<PhotoConnue> ListePhotos(const QString& dossier);

struct ChoixPhotos {
  QList<PhotoConnue> Photos;
  QList<PieceJointe> Pieces;
  QString Tete = {};  ///< the first of `enTete` that is among them, and then the first of all; empty: none is
};

/// Reads the photos nearest the intrusion, `nombre` and `octetsMax` bytes at the most; in front of them, however far it
/// is, the first of `enTete` that can be had, in the place of the farthest. A photo that is still being
/// written (it does not end in JPEG's end marker), or that is gone meanwhile, is passed over for the next one; so is
/// one that is too large for what is left of the bytes. Those with a name in `sauf` are left to others.
ChoixPhotos PrendPhotos(const QString& dossier, qint64 intrusion, int nombre, qint64 octetsMax,
                        const QStringList& sauf = {}, const QStringList& enTete = {});

/// The same for a photo disk that may not answer: on a thread that is left behind when it hangs. One thread may use it.
class LecteurPhotos {
 public:
  static constexpr std::chrono::milliseconds kPatience{3000};

  explicit LecteurPhotos(std::chrono::milliseconds patience = kPatience) : Patience_(patience) {}
  /// PrendPhotos; nothing when the disk has not answered in time. From then on nothing at once, until it has: else each
  /// question would wait as long, and leave a thread.
  std::optional<ChoixPhotos> Prend(const QString& dossier, qint64 intrusion, int nombre, qint64 octetsMax,
                                   const QStringList& sauf = {}, const QStringList& enTete = {});

 private:
  std::chrono::milliseconds Patience_;
  std::weak_ptr<void> EnRetard_;  // lives as long as the thread that has not come back
};

}  // namespace vaktor
