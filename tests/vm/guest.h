// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests inside the virtual machine share: waiting for things that happen in their own time.
#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QString>
#include <QThread>
#include <functional>

namespace vaktor {

/// What one second means in here: "real time", or how long one instruction of the processor takes (camera_vm).
inline QString HorlogeDeLaMachine() { return qEnvironmentVariable("CAMERA_VM_CLOCK", QStringLiteral("not told")); }

/// Asks until it is so or the time is over. The limits are wide: what is asked for must come, when is not judged.
inline bool Attend(const std::function<bool()>& question, int secondes = 60) {
  QElapsedTimer depuis;
  depuis.start();
  while (!question()) {
    if (depuis.elapsed() > qint64{secondes} * 1000) return false;
    QThread::msleep(20);
  }
  return true;
}

/// A word to the emulated USB camera: move still stall go freeze thaw unplug plug.
inline bool Ordonne(const char* mot) {
  QFile tube(QStringLiteral("/run/usb-webcam"));
  return tube.open(QIODevice::WriteOnly) && tube.write(QByteArray(mot) + '\n') > 0;
}

/// Whole frames that the emulated camera has given since it was started; below 0: it does not say.
inline int ImagesDonnees() {
  const auto reponses = [] {
    QFile journal(QStringLiteral("/run/usb-webcam.log"));
    return journal.open(QIODevice::ReadOnly) ? journal.readAll() : QByteArray();
  };
  const qsizetype avant = reponses().count("given");
  if (!Ordonne("count") || !Attend([&] { return reponses().count("given") > avant; })) return -1;
  const QByteArray toutes = reponses();
  return toutes.mid(toutes.lastIndexOf("given") + 6).split('\n').first().toInt();
}

}  // namespace vaktor
