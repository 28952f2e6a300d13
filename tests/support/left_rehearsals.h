// SPDX-License-Identifier: GPL-3.0-or-later
// The companion of a rehearsal that was given up ends by itself, and the object of it goes behind it, in the event
// loop.
#pragma once

#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QEvent>

#include "support/event_wait.h"
#include "support/file_bytes.h"

namespace vaktor::essai {

/// A companion that this process has started still runs, or nobody has taken note of its end.
inline bool ResteUnCompagnon() {
  const QByteArray parent = "\nPPid:\t" + QByteArray::number(::getpid()) + '\n';
  for (const QString& nom : QDir("/proc").entryList(QDir::Dirs)) {
    const QByteArray etat = LitOctets("/proc/" + nom + "/status");
    if (etat.startsWith("Name:\tVAKTOR") && etat.contains(parent)) return true;
  }
  return false;
}

/// False when one has not ended in time. For the end of a test, which leaves nothing behind.
inline bool AttendFinDesEssais() {
  const bool finis = AttendQue([] { return !ResteUnCompagnon(); });
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return finis;
}

}  // namespace vaktor::essai
