// SPDX-License-Identifier: GPL-3.0-or-later
// Hands one mail to the system's own mail program, through the interface that sendmail, postfix, exim, msmtp and their
// like share (Linux Standard Base, "sendmail").
#pragma once

#include <QByteArray>

#include "modules/mail/sending.h"

namespace vaktor {

/// The system's mail program, in the places where sendmail and its like are; empty when there is none.
QString TrouveSendmail();

/// `reglages.Sendmail` is the path of the program. What it says becomes the server's words. Blocks, as smtp_sender.h
/// does.
ResultatEnvoi EnvoieParSendmail(const ReglagesEnvoi& reglages, const Enveloppe& enveloppe, const QByteArray& message,
                                const RappelsEnvoi& rappels);

}  // namespace vaktor
