// SPDX-License-Identifier: GPL-3.0-or-later
// What a program inherits that is started while this one holds files open.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>

namespace vaktor::essai {

/// The files that a program started now finds open, as `ls -l` tells them.
inline QByteArray LitHerites() {
  QProcess programme;
  programme.start(QStringLiteral("/bin/ls"), {QStringLiteral("-l"), QStringLiteral("/proc/self/fd")});
  programme.waitForFinished();
  return programme.readAllStandardOutput();
}

}  // namespace vaktor::essai
