// SPDX-License-Identifier: GPL-3.0-or-later
// What a text typed or pasted into a field of one line is freed of, the same in every form.
#pragma once

#include <QString>

namespace vaktor {

/// No blanks of any kind, for addresses and names: a web page gives them with blanks that nobody sees.
QString RetireBlancs(QString texte);

/// Without the common blank and the tab alone, for passwords: any other one, a no-break space above all, is a sign that
/// somebody chose and that the server knows.
QString RetireEspaces(QString texte);

/// A field of one line takes what stands before the first line break of a pasted text.
QString GardePremiereLigne(const QString& texte);

}  // namespace vaktor
