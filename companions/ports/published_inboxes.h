// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the handles of the inboxes as the store has them now, for all the processes of this user.
#pragma once

#include <QtGlobal>
#include <array>
#include <functional>
#include <optional>

namespace vaktor {

/// One handle for each companion, in the order of kCompagnons; 0 where there is none, or no number.
using PoigneesPubliees = std::array<qint32, 3>;

/// User-interface thread. The disk is never waited for there.
class LecteurCasiers {
 public:
  using Rend = std::function<void(const std::optional<PoigneesPubliees>& lues)>;

  virtual ~LecteurCasiers() = default;
  /// Reads them. `rend` is called once from the event loop, with nothing when the store cannot be read; while its disk
  /// does not answer it is not called. A second request forgets the first.
  virtual void LitCasiers(Rend rend) = 0;
  /// Nothing comes any more of what was asked.
  virtual void Oublie() = 0;
};

}  // namespace vaktor
