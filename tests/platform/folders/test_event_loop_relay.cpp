// SPDX-License-Identifier: GPL-3.0-or-later
// What threads post runs in the event loop, and no more once the relay is cut.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <thread>

#include "platform/folders/event_loop_relay.h"
#include "support/event_wait.h"

namespace vaktor {
namespace {

TEST(EventLoopRelay, RunsWhatAThreadPostsInTheEventLoop) {
  RelaisBoucle relais;
  QThread* ou = nullptr;
  std::thread([&] { relais.Poste([&ou] { ou = QThread::currentThread(); }); }).join();
  EXPECT_EQ(ou, nullptr) << "later";
  ASSERT_TRUE(essai::AttendQue([&] { return ou != nullptr; }));
  EXPECT_EQ(ou, QThread::currentThread());
}

TEST(EventLoopRelay, NothingRunsOnceItIsCutNeitherWhatWasPostedBefore) {
  RelaisBoucle relais;
  int fois = 0;
  relais.Poste([&fois] { ++fois; });
  relais.Coupe();
  relais.Poste([&fois] { ++fois; });
  QCoreApplication::processEvents();
  EXPECT_EQ(fois, 0);
}

}  // namespace
}  // namespace vaktor
