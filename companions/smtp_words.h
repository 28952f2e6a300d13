// Words of the mail settings that the numbered tables do not hold: how an account is named, and the mail of a
// rehearsal. By language: 1 English, any other number French.
#pragma once

#include <QString>

#include "companions/ports/foreign_accounts.h"

namespace vaktor {

/// An account in the list: its address, and whether it logs in with OAuth2.
QString NommeCompte(qint32 langue, const CompteMail& compte);
/// What the field of the password of such an account wants, and why.
QString InviteOAuth2(qint32 langue);
QString AideOAuth2(qint32 langue);

/// Subject and first line of the mail: who gets it must not take it for an alarm.
QString SujetEssai(qint32 langue, const QString& sujet);
QString CorpsEssai(qint32 langue, const QString& corps);

}  // namespace vaktor
