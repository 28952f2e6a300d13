// SPDX-License-Identifier: GPL-3.0-or-later
// What a person is told when a parameter cannot be used or the store not be written, in both languages.
#pragma once

#include <QString>
#include <QStringList>

#include "texts/language.h"

namespace vaktor {

/// A stored value that is not possible; names key ("section/key"), value (shortened) and where it lies.
QString DitReglageImpossible(Langue langue, const QString& nom, const QString& valeur, const QString& emplacement);

/// The photo folder that is neither there nor can be made; `valeur` is the folder that was stored.
QString DitDossierPhotoImpossible(Langue langue, const QString& nom, const QString& valeur, const QString& dossier);

/// The store could not be written; `raison` is what the system says.
QString DitSauvegardeImpossible(Langue langue, const QString& raison);

/// What of a damaged store is told: which settings have lost their values, where they are known, else how many lines
/// made no sense, and where the damaged store is kept.
QString DitReglagesAbimes(Langue langue, const QStringList& noms, qint64 lignes, const QString& emplacement);

}  // namespace vaktor
