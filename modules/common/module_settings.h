// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of a companion: the whole table of the main program, read from the same store.
#pragma once

#include <QString>
#include <functional>

#include "settings/parameters.h"
#include "settings/ports/settings_store.h"

namespace vaktor {

/// What the store says, beside Parametres, to companions alone.
struct ReglagesModule {
  Parametres Valeurs;        ///< passwords in clear, as in the main program
  QString Largeur, Hauteur;  ///< width and height of the picture, numbers as text, empty when never saved
};

/// Reads the whole table. A value that makes no sense is replaced by the one of a first run: a companion must do its
/// best with a damaged file, and the main program is the one to tell the user. `dossierPhotos` is the
/// default photo folder.
ReglagesModule LitReglagesModule(const MagasinReglages& magasin, const QString& dossierPhotos);

/// The handle of this section's inbox; 0 when there is none or it is no number.
qint32 LitHwndvk(const MagasinReglages& magasin, const QString& section);

}  // namespace vaktor
