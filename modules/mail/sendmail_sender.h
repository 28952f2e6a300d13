// Hands one mail to the system's own mail program, through the interface that sendmail, postfix, exim, msmtp and their
// like share (Linux Standard Base, "sendmail").
#pragma once

#include "modules/mail/smtp_sender.h"

namespace vaktor {

/// `reglages.Sendmail` is the path of the program. What it says becomes the server's words.
ResultatEnvoi EnvoieParSendmail(const ReglagesEnvoi& reglages, const Enveloppe& enveloppe, const QByteArray& message,
                                const RappelsEnvoi& rappels);

}  // namespace vaktor
