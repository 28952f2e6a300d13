// SPDX-License-Identifier: GPL-3.0-or-later
// What the system would write of a process that crashes.
#pragma once

#include <QByteArray>
#include <QFile>

namespace vaktor::essai {

/// No core file, and no memory in one that is handed to another program.
inline bool NeLaisseAucuneImage(qint64 pid) {
  const QString dossier = QStringLiteral("/proc/%1/").arg(pid);
  QFile limites(dossier + QStringLiteral("limits")), filtre(dossier + QStringLiteral("coredump_filter"));
  if (!limites.open(QIODevice::ReadOnly) || !filtre.open(QIODevice::ReadOnly)) return false;
  for (const QByteArray& ligne : limites.readAll().split('\n')) {
    if (ligne.startsWith("Max core file size") && ligne.simplified() != "Max core file size 0 0 bytes") return false;
  }
  return filtre.readAll().trimmed().toUInt(nullptr, 16) == 0;
}

}  // namespace vaktor::essai
