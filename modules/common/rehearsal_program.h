// SPDX-License-Identifier: GPL-3.0-or-later
// "--try" of a companion: one request on standard input, a line of standard output for each step, an exit status. For a
// person who wants to know whether the settings are right before the alarm depends on them.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace vaktor {

/// What a rehearsal ends with, and the exit status of "--try".
enum class FinRepetition { kAccepte = 0, kRefuse = 1, kDemandeIllisible = 2 };

/// Takes one line without its line break.
using EcritureLigne = std::function<void(const QString& ligne)>;

/// main() of a companion for "--try": reads standard input to its end, hands it to `joue` and writes each line out as
/// it comes. Gives the exit status. The request may hold a password, so that it must stand in no argument.
int ExecuteRepetition(int argc, char** argv,
                      const std::function<FinRepetition(const QByteArray& demande, const EcritureLigne& ecrit)>& joue);

}  // namespace vaktor
