// SPDX-License-Identifier: GPL-3.0-or-later
// What a text typed into a field becomes. Pure functions, apart from the forms: any text reduces to a usable one.
#pragma once

#include <QString>

#include "base/numbers.h"
#include "base/typed_text.h"
#include "settings/parameters.h"

namespace vaktor {

/// TxtRefresh, seconds with a decimal comma: digits and "," stay. An empty text gives "5", a value of zero "0,5". The
/// result can always be read as a number greater than 0: of several commas the first one counts, commas alone count as
/// zero, a number above 32 bits becomes the largest 32-bit one.
QString NettoieIntervalle(const QString& texte);

/// TxtFtp: "\" becomes "/", and the text ends before the first "/": a folder typed after the host falls away.
QString NettoieServeur(QString texte);

/// TxtHtml when it is left: "/" is appended where the last character is none, then each "\" becomes "/".
QString TermineAdresse(QString adresse);

/// The word for CombCouleur's entry 0 to 6; for another index `mot`, the word until now.
QString DonneMotCouleur(qint32 index, const QString& mot);

/// Who wants pushes and no mails: no server for mails is given, and the box must take a tick all the same.
bool SansServeurMaisPush(const Parametres& reglages);

/// Mails are to go out by SMTP and the server, the port or the sender is missing.
bool SmtpIncomplet(const Parametres& reglages);

}  // namespace vaktor
