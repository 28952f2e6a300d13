// SPDX-License-Identifier: GPL-3.0-or-later
// The file dialog of the toolkit.
#pragma once

#include "base/ports/file_dialog.h"
#include "base/ports/save_dialog.h"

namespace vaktor {

/// User-interface thread. Opens over the active window, in the user's folder of music or where the last file lay, or at
/// the user's home where that folder does not answer.
class DialogueFichierQt : public DialogueFichier {
 public:
  QString ChoisitFichier(const QString& filtre) override;

 private:
  QString Dossier_;
};

/// The same for saving. The name has the ending of the filter that is chosen. Opens in the user's folder of films, or
/// where the last one was saved.
class DialogueSauvegardeQt : public DialogueSauvegarde {
 public:
  QString ChoisitDestination(const QString& nom, const QStringList& filtres) override;

 private:
  QString Dossier_;
};

}  // namespace vaktor
