// SPDX-License-Identifier: GPL-3.0-or-later
// The file dialog of the toolkit.
#pragma once

#include "base/ports/file_dialog.h"

namespace vaktor {

/// User-interface thread. Opens over the active window.
class DialogueFichierQt : public DialogueFichier {
 public:
  QString ChoisitFichier(const QString& filtre) override;
};

}  // namespace vaktor
