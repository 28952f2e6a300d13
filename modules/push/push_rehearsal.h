// SPDX-License-Identifier: GPL-3.0-or-later
// The rehearsal of the push: one is posted now, with a picture as an alarm has one, and every step is told.
#pragma once

#include "modules/common/rehearsal_program.h"

namespace vaktor {

/// A request for "--try" that has the key "pushadresse" is meant for the push.
bool EstDemandePush(const QByteArray& demande);

/// `demande`: one JSON object with "pushadresse", "pushentete", "sujet", the title, and "langue". Nothing of it is
/// saved. `ecrit` gets the lines, the last one says what happened and what to change. None of them holds the header's
/// value, or of the address more than its host.
FinRepetition RepetePush(const QByteArray& demande, const QString& autorites, const EcritureLigne& ecrit);

}  // namespace vaktor
