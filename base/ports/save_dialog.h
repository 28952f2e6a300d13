// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the system's dialog for choosing where something is saved.
#pragma once

#include <QString>
#include <QStringList>

namespace vaktor {

class DialogueSauvegarde {
 public:
  virtual ~DialogueSauvegarde() = default;
  /// User-interface thread; blocks until the user has chosen, timers go on meanwhile. `nom`: proposed file name.
  /// `filtres`: names with the patterns in brackets, "Matroska (*.mkv)"; the first is the proposed one. The native path
  /// of the file, empty when the user cancels; a file that is there already was confirmed.
  virtual QString ChoisitDestination(const QString& nom, const QStringList& filtres) = 0;
};

}  // namespace vaktor
