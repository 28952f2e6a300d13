// SPDX-License-Identifier: GPL-3.0-or-later
// Hands one mail to a server, or to the system's own mail program. Blocks: called on a thread of its own.
// Sources: RFC 5321 (SMTP), RFC 3207 (STARTTLS), RFC 8314 (TLS from the start, port 465), RFC 4954 (AUTH).
#pragma once

#include <QByteArray>

#include "modules/mail/sending.h"

namespace vaktor {

/// Certificates are verified. What is sent is never logged; only the server's replies are read. With several
/// destinations it is enough that the server takes one.
ResultatEnvoi EnvoieCourriel(const ReglagesEnvoi& reglages, const Enveloppe& enveloppe, const QByteArray& message,
                             const RappelsEnvoi& rappels);

}  // namespace vaktor
