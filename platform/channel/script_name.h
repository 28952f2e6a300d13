// SPDX-License-Identifier: GPL-3.0-or-later
// Which script a process runs: the system's own name for it is that of the interpreter.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// File name of the script that the process `pid` runs, or the empty text; only scripts with the name of a companion in
/// their own are looked for. `executable` is the full path of what it executes, its interpreter. A process that merely
/// has a script's name among its arguments, as an editor has, runs none: the script itself must name this interpreter
/// in its first line.
QString TrouveScript(qint32 pid, const QString& executable);

/// The program that the first line of a script names, with its folder where that stands there; over "env" the one
/// behind it. Empty for a text that is no script.
QByteArray LitInterprete(const QByteArray& premiereLigne);

/// Whether the process was started with this argument, be it a script's.
bool PorteArgument(qint32 pid, QLatin1String argument);

}  // namespace vaktor
