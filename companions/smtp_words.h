// SPDX-License-Identifier: GPL-3.0-or-later
// Words of the mail settings that the numbered tables do not hold: how an account is named, the switch for servers
// without TLS, and the mail of a rehearsal.
#pragma once

#include <QString>

#include "companions/ports/foreign_accounts.h"
#include "texts/language.h"

namespace vaktor {

/// An account in the list: its address, and whether it logs in with OAuth2.
QString NommeCompte(Langue langue, const CompteMail& compte);
/// What the field of the password of such an account wants, and why.
QString InviteOAuth2(Langue langue);
QString AideOAuth2(Langue langue);

/// The switch for a server without TLS, and what it costs.
QString MotsSansChiffrement(Langue langue);
QString AideSansChiffrement(Langue langue);

/// Why fields are off: mails leave through the mail software; the server wants no login, as the box says that is named.
QString RaisonLogiciel(Langue langue);
QString RaisonSansConnexion(Langue langue, const QString& boite);

/// The command that prints a token, and which accounts need one.
QString MotsJeton(Langue langue);
QString AideJeton(Langue langue);

/// The daily sign of life, what it is, and the name of an hour, -1 for none.
QString MotsSigneDeVie(Langue langue);
QString AideSigneDeVie(Langue langue);
QString NommeHeure(Langue langue, int heure);

/// Subject and first line of the mail: who gets it must not take it for an alarm.
QString SujetEssai(Langue langue, const QString& sujet);
QString CorpsEssai(Langue langue, const QString& corps);

}  // namespace vaktor
