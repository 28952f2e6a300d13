// SPDX-License-Identifier: GPL-3.0-or-later
// Port: how much lies in a folder.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace vaktor {

struct TailleDossier {
  qint64 Nombre = 0;  ///< files
  qint64 Octets = 0;  ///< in all of them
};

/// User-interface thread. The disk is never waited for there.
class MesureurDossier {
 public:
  using Rend = std::function<void(const std::optional<TailleDossier>& taille)>;

  virtual ~MesureurDossier() = default;
  /// Measures the files of `dossier`, without its folders. `rend` is called once from the event loop, with nothing when
  /// the folder cannot be read; while the disk does not answer it is not called. While a measurement is under way, for
  /// a minute at the most, another one is not begun, and `rend` is dropped; of one that took longer nothing comes any
  /// more once another was asked for.
  virtual void Mesure(const QString& dossier, Rend rend) = 0;
  /// Nothing comes any more of what was asked.
  virtual void Oublie() = 0;
};

}  // namespace vaktor
