// SPDX-License-Identifier: GPL-3.0-or-later
// Port: a notification on the desktop, for somebody who works at the machine and does not look at the window.
#pragma once

#include <QString>

namespace vaktor {

/// User-interface thread. Returns at once; nobody is told where the desktop shows none.
class NotifieurBureau {
 public:
  virtual ~NotifieurBureau() = default;
  /// Plain text, lines parted by "\n". `pressant`: it stays until the user takes it away.
  virtual void Notifie(const QString& titre, const QString& texte, bool pressant) = 0;
};

}  // namespace vaktor
