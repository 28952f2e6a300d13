// Words of the mail settings that the numbered tables do not hold: what can fail while the accounts are read, and the
// mail of a rehearsal. By language: 1 English, any other number French.
#pragma once

#include <QString>

namespace vaktor {

/// More mail accounts than the `maximum` that can be read.
QString MessageTropDeComptes(qint32 langue, qsizetype maximum);
/// The port of the account `adresse` is 32768 or above.
QString MessagePortTropGrand(qint32 langue, const QString& adresse);

/// Subject and first line of the mail: who gets it must not take it for an alarm.
QString SujetEssai(qint32 langue, const QString& sujet);
QString CorpsEssai(qint32 langue, const QString& corps);

}  // namespace vaktor
