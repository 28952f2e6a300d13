// SPDX-License-Identifier: GPL-3.0-or-later
// The photos on disk, as the mail takes them.
#pragma once

#include <QStringList>
#include <chrono>
#include <exception>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

#include "modules/mail/mail_policy.h"
#include "modules/mail/mime_message.h"

namespace vaktor {

/// All photos of the folder ("*.jpg", any case), native path. Empty for a folder that cannot be read. When each was
/// written is told by its disk, or by the time of day in its name where that is nearer to `pres` (milliseconds since
/// 1970).
QList<PhotoConnue> ListePhotos(const QString& dossier, qint64 pres);

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
  /// What `lit` gives, which runs on the other thread and owns all that it uses; nothing when the disk has not answered
  /// in time. From then on nothing at once, until it has: else each question would wait as long, and leave a thread.
  template <typename Lu>
  std::optional<Lu> Demande(std::function<Lu()> lit) {
    if (!EnRetard_.expired()) return std::nullopt;
    try {
      auto tache = std::make_shared<std::packaged_task<Lu()>>(std::move(lit));
      std::future<Lu> rendu = tache->get_future();
      const std::weak_ptr<void> enRetard = tache;
      std::thread([tache = std::move(tache)] { (*tache)(); }).detach();
      if (rendu.wait_for(Patience_) == std::future_status::ready) return rendu.get();
      EnRetard_ = enRetard;
    } catch (const std::exception&) {  // no thread, no memory: it goes without photos
    }
    return std::nullopt;
  }
  /// PrendPhotos.
  std::optional<ChoixPhotos> Prend(const QString& dossier, qint64 intrusion, int nombre, qint64 octetsMax,
                                   const QStringList& sauf = {}, const QStringList& enTete = {});

 private:
  std::chrono::milliseconds Patience_;
  std::weak_ptr<void> EnRetard_;  // lives as long as the thread that has not come back
};

}  // namespace vaktor
