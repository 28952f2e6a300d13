// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMetaObject>

#include "platform/base/event_pump.h"

namespace vaktor {
namespace {

TEST(EventPump, RunsWhatIsPendingAndNothingBefore) {
  int executes = 0;
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [&executes] { ++executes; }, Qt::QueuedConnection);
  EXPECT_EQ(executes, 0);
  PompeEvenementsQt().PompeMessages();
  EXPECT_EQ(executes, 1);
  PompeEvenementsQt().PompeMessages();
  EXPECT_EQ(executes, 1);
}

}  // namespace
}  // namespace vaktor
