// Words of the rehearsals, of the mail and of the live page. By language: 1 English, any other number French.
#pragma once

#include <QString>
#include <functional>

namespace vaktor {

struct MotsEssai {
  QString Essayer;     ///< the button
  QString Annuler;     ///< the same button while a rehearsal runs
  QString Aide;        ///< tool tip: what the button does
  QString Etapes;      ///< the list of the steps, for those who hear the form
  QString EnCours;     ///< a rehearsal runs
  QString Annule;      ///< it was cancelled
  QString SansFin;     ///< it took longer than it may
  QString Impossible;  ///< the companion could not be started, or broke off
  /// A step as the companion tells it ("AUTH: 235 ok") with its plain name in front; the server's own words stay as
  /// they are. A line that begins with no known command stays whole.
  std::function<QString(const QString& ligne)> NommeEtape;
};
MotsEssai DonneMotsEssaiMail(qint32 langue);
MotsEssai DonneMotsEssaiFtp(qint32 langue);

/// What stands beside the button before it is pressed; `destination` of the mail, or `serveur`, may be empty.
QString InviteEssaiMail(qint32 langue, const QString& destination);
QString InviteEssaiFtp(qint32 langue, const QString& serveur);

/// Title of the window in which the live page is tried, and its other button.
QString TitreEssaiFtp(qint32 langue);
QString MotFermer(qint32 langue);

}  // namespace vaktor
