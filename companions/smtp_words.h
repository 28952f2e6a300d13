// Words of the mail settings that the numbered tables do not hold: what can fail while the accounts are read, and the
// rehearsal. By language: 1 English, any other number French.
#pragma once

#include <QString>

namespace vaktor {

/// More mail accounts than the `maximum` that can be read.
QString MessageTropDeComptes(qint32 langue, qsizetype maximum);
/// The port of the account `adresse` is 32768 or above.
QString MessagePortTropGrand(qint32 langue, const QString& adresse);

/// The words of the rehearsal.
struct MotsEssai {
  QString Essayer;     ///< the button
  QString Annuler;     ///< the same button while a rehearsal runs
  QString Aide;        ///< tool tip: what the button does
  QString Etapes;      ///< the list of the steps, for those who hear the form
  QString EnCours;     ///< a rehearsal runs
  QString Annule;      ///< it was cancelled
  QString SansFin;     ///< it took longer than it may
  QString Impossible;  ///< the mail companion could not be started, or broke off
};
MotsEssai DonneMotsEssai(qint32 langue);
/// What stands beside the button before it is pressed; `destination` may be empty.
QString InviteEssai(qint32 langue, const QString& destination);
/// Subject and first line of the mail: who gets it must not take it for an alarm.
QString SujetEssai(qint32 langue, const QString& sujet);
QString CorpsEssai(qint32 langue, const QString& corps);

/// A step as the companion tells it ("AUTH: 235 ok") with its plain name in front; the server's own words stay as they
/// are. A line that begins with no command of SMTP stays whole.
QString NommeEtape(qint32 langue, const QString& ligne);

}  // namespace vaktor
