// SPDX-License-Identifier: GPL-3.0-or-later
// Port: what was written and did not reach the disk.
#pragma once

#include <QString>
#include <optional>

namespace vaktor {

struct PerteVidage {
  QString Dossier;  ///< native path
  int Erreur = 0;   ///< the system's error number (errno)
};

/// User-interface thread.
class PertesVidage {
 public:
  virtual ~PertesVidage() = default;
  /// A folder of which files that were written, and told as written, were lost on their way to the disk since the last
  /// call; nothing when there is none. Each is told once. Asks no disk and waits for none.
  virtual std::optional<PerteVidage> PrendPerte() = 0;
};

}  // namespace vaktor
