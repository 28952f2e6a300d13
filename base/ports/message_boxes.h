// SPDX-License-Identifier: GPL-3.0-or-later
// Port: message boxes. The words are the caller's; the box is the system's. The fake answers and records.
#pragma once

#include <QString>

namespace vaktor {

enum class BoutonsBoite { kOk, kOkAnnuler, kOuiNon };
enum class ReponseBoite { kOk, kAnnuler, kOui, kNon };

/// User-interface thread. Each call blocks until the user has answered; timers go on meanwhile, as with any modal box.
class BoitesMessage {
 public:
  virtual ~BoitesMessage() = default;
  /// Information icon. A box that is closed without an answer, also by Escape, gives kAnnuler, or with
  /// kOk alone kOk.
  virtual ReponseBoite MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) = 0;
};

}  // namespace vaktor
