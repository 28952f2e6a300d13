// SPDX-License-Identifier: GPL-3.0-or-later
// Words of the rehearsals, of the mail and of the live page.
#pragma once

#include <QString>
#include <functional>

#include "texts/language.h"

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
MotsEssai DonneMotsEssaiMail(Langue langue);
MotsEssai DonneMotsEssaiFtp(Langue langue);
MotsEssai DonneMotsEssaiPush(Langue langue);

/// What stands beside the button before it is pressed; `destination` of the mail, or `serveur`, may be empty.
QString InviteEssaiMail(Langue langue, const QString& destination);
QString InviteEssaiFtp(Langue langue, const QString& serveur);

/// Title of the window in which the live page is tried, and its other button.
QString TitreEssaiFtp(Langue langue);
QString MotFermer(Langue langue);

}  // namespace vaktor
