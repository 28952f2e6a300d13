// SPDX-License-Identifier: GPL-3.0-or-later
// Port: whether a folder takes photos again, asked without waiting for its disk.
#pragma once

#include <QString>
#include <functional>

namespace vaktor {

/// User-interface thread.
class EssaiEcriture {
 public:
  using Recoit = std::function<void(bool reussi)>;

  virtual ~EssaiEcriture() = default;
  /// Writes one photo's worth of bytes into a folder, given in its stored form, takes them away again, and calls
  /// `recoit` later, from the event loop: once, or never for a disk that does not answer. A folder whose trial is not
  /// answered is not tried again; the earlier `recoit` stands.
  virtual void Essaie(const QString& dossier, Recoit recoit) = 0;
  /// Nothing comes any more of what was asked.
  virtual void Oublie() = 0;
};

}  // namespace vaktor
