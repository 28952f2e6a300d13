// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the system's dialog for choosing a file.
#pragma once

#include <QString>

namespace vaktor {

class DialogueFichier {
 public:
  virtual ~DialogueFichier() = default;
  /// User-interface thread; blocks until the user has chosen, timers go on meanwhile. `filtre` is a name with the
  /// patterns in brackets, "Audio (*.WAV *.wav)". The native path of the file, empty when the user cancels.
  virtual QString ChoisitFichier(const QString& filtre) = 0;
};

}  // namespace vaktor
