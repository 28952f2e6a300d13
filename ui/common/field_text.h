// SPDX-License-Identifier: GPL-3.0-or-later
// What a rule made of a typed text, written back into its field.
#pragma once

#include <QLineEdit>

namespace vaktor {

/// Writes a text if it differs; the cursor stays behind the same characters, counted from the end. Writing is a change
/// like any other: the change handler runs again.
void EcritChamp(QLineEdit& champ, const QString& texte);

}  // namespace vaktor
