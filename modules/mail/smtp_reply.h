// SPDX-License-Identifier: GPL-3.0-or-later
// What a server's refusal means: by its code, by the enhanced code behind it (RFC 3463) and by its words, in this
// order; the command alone says little. Servers refuse a mail that is too large at MAIL, a sender at RCPT, a relay
// anywhere.
#pragma once

#include <QByteArray>

#include "modules/mail/sending.h"

namespace vaktor {

struct ReponseSmtp {
  QByteArray Verbe;  ///< of the command that it answers, in capitals; empty for the greeting
  int Code = 0;
  QByteArray Mots;  ///< with the code, of all lines
};

/// The enhanced code, "5.3.4"; empty where there is none.
QByteArray DonneCodeEtendu(const QByteArray& mots);

/// A smaller mail may be taken: 552 whatever it means, or the enhanced code for a message that is too large.
bool DemandeMoinsGros(const ReponseSmtp& reponse);

/// Of a reply of 400 and above. `connecte`: a login was taken before.
CauseEchec ComprendRefus(const ReponseSmtp& reponse, bool connecte);

/// The refusal is about this mail, and says nothing about others.
bool EstRefusDuCourriel(const ReponseSmtp& reponse);

}  // namespace vaktor
