// SPDX-License-Identifier: GPL-3.0-or-later
// Notifications of the desktop, by its own program "notify-send".
#pragma once

#include "health/ports/desktop_notifier.h"
#include "platform/folders/bounded_work.h"

namespace vaktor {

/// Started without waiting and without a shell, from a thread of its own: where the program lies on a disk that does
/// not answer, that thread waits and nobody else. Nothing happens where it is not installed.
class NotifieurSysteme : public NotifieurBureau {
 public:
  void Notifie(const QString& titre, const QString& texte, bool pressant) override;

 private:
  TravauxBornes Travaux_;
};

}  // namespace vaktor
