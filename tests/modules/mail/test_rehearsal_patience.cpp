// SPDX-License-Identifier: GPL-3.0-or-later
// Somebody sits in front of a rehearsal: a server that says nothing is given up long before the outbox would.
#include <gtest/gtest.h>

#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>

#include "support/event_wait.h"

namespace vaktor::essai {
namespace {

// It greets and hears our name: one that does not is given up for want of a connection, which even the outbox does not
// wait long for.
TEST(RehearsalPatience, AServerThatSaysNothingMoreIsGivenUpWithinAMinute) {
  QTcpServer muet;
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  QProcess programme;
  programme.start(VAKTOR_MAIL, {"--try"});
  programme.write(R"({"destination":"anna@exemple.fr","smtpfrom":"a@b.fr","smtpserveur":"127.0.0.1","smtpport":)" +
                  QByteArray::number(muet.serverPort()) + R"(,"smtpneedlogin":false,"langue":1})");
  programme.closeWriteChannel();
  ASSERT_TRUE(AttendQue([&] { return muet.hasPendingConnections(); }));
  QTcpSocket* connexion = muet.nextPendingConnection();
  connexion->write("220 127.0.0.1 ready\r\n");
  ASSERT_TRUE(AttendQue([&] { return connexion->readAll().startsWith("EHLO"); }));
  connexion->write("250 127.0.0.1\r\n");
  ASSERT_TRUE(AttendQue([&] { return connexion->readAll().startsWith("MAIL"); }));
  ASSERT_TRUE(programme.waitForFinished(60'000));
  EXPECT_EQ(programme.exitCode(), 1) << programme.readAll().toStdString();
}

}  // namespace
}  // namespace vaktor::essai
