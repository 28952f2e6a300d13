// SPDX-License-Identifier: GPL-3.0-or-later
// What a person is told of a folder that cannot be used.
#pragma once

#include <QString>

#include "image/ports/folder_tree.h"
#include "texts/language.h"

namespace vaktor {

/// One sentence with the folder's name; empty for kBon.
QString DitEtatDossier(Langue langue, EtatDossier etat, const QString& dossier);
/// The same, and which folder the photos stay in.
QString DitDossierRefuse(Langue langue, EtatDossier etat, const QString& dossier, const QString& garde);
/// Why the choice of a folder could not be saved (`raison`, one sentence), and which folder the photos stay in.
QString DitDossierNonSauve(Langue langue, const QString& raison, const QString& garde);

}  // namespace vaktor
