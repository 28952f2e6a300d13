// SPDX-License-Identifier: GPL-3.0-or-later
// Waits by running the event loop until something is so. The limit is there for a test that fails, never for one that
// passes: no test asserts how long anything took.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

namespace vaktor::essai {

constexpr int kPatience = 20000;  // milliseconds

template <typename Condition>
bool AttendQue(Condition condition) {
  const QDeadlineTimer fin(kPatience);
  while (!condition()) {
    if (fin.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
  }
  return true;
}

}  // namespace vaktor::essai
