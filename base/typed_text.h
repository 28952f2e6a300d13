// SPDX-License-Identifier: GPL-3.0-or-later
// What a text typed or pasted into a field of one line is freed of, the same in every form.
#pragma once

#include <QString>

namespace vaktor {

/// No blanks of any kind, for addresses, names and passwords.
QString RetireBlancs(QString texte);

/// A field of one line takes what stands before the first line break of a pasted text.
QString GardePremiereLigne(const QString& texte);

}  // namespace vaktor
