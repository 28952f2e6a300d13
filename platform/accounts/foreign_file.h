// SPDX-License-Identifier: GPL-3.0-or-later
// Files of other programs: whatever may stand in their place is opened without harm and read up to a limit.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// How many bytes may still be read in one reading of all accounts. One budget bounds them together, so that many large
/// files cannot hold the user-interface thread up where one cannot.
struct BudgetLecture {
  qint64 Octets;
};

/// The first bytes of `fichier`, as many as `limite` and the budget allow; empty when there is none. Only a regular
/// file is read (links are followed): a pipe, a device or a folder in its place, a loop of links, a refusal of the
/// system all are "none". Never waits and never writes.
QByteArray LitFichierEtranger(const QString& fichier, qint64 limite, BudgetLecture& budget);

/// The same text without its byte order mark, and as UTF-8 where the mark told UTF-16. Anything else stays as it is.
QByteArray SansMarque(const QByteArray& octets);

/// UTF-8 where that is what the bytes are, else each byte a character of Latin-1: what old versions of these programs
/// wrote.
QByteArray RendUtf8(QByteArrayView octets);

}  // namespace vaktor
