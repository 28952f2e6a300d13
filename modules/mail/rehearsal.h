// SPDX-License-Identifier: GPL-3.0-or-later
// The rehearsal: one mail, sent now, with every step told. For a person who wants to know whether the settings are
// right before the alarm depends on them.
#pragma once

#include <QJsonObject>

#include "modules/common/rehearsal_program.h"
#include "settings/parameters.h"

namespace vaktor {

/// The settings in a request; what is missing is as in a first run.
Parametres LitDemandeCourriel(const QJsonObject& demande);

/// `demande`: one JSON object with the keys of the store's section MAIL ("destination", "sujet", "corp", "smtpserveur",
/// "smtpfrom", "smtpport", "smtpuser", "smtpactif", "smtpneedlogin"), "pass" in clear, and "langue". A number may stand
/// for the port. Nothing of it is saved. `ecrit` gets the lines, the last one says what happened and what to change;
/// the password is in none of them.
FinRepetition RepeteEnvoi(const QByteArray& demande, const QString& autorites, const EcritureLigne& ecrit);

}  // namespace vaktor
