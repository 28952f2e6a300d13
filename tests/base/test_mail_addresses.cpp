// SPDX-License-Identifier: GPL-3.0-or-later
// The addresses of a field as people type and paste them.
#include <gtest/gtest.h>

#include "base/mail_addresses.h"

namespace vaktor::essai {
namespace {

TEST(MailAddresses, AreTakenApart) {
  EXPECT_EQ(LitAdresses(" a@b.fr; c@d.fr ,, a@b.fr\r\n").Bonnes, QStringList({"a@b.fr", "c@d.fr"}));
  EXPECT_EQ(LitAdresses(" a@b.fr; c@d.fr ,, a@b.fr\r\n").Mauvaises, QStringList());
  EXPECT_EQ(LitAdresses(""), AdressesLues());
}

TEST(MailAddresses, ANameBesideTheAddressIsUnderstood) {
  for (const char* nom : {"Anna M. <anna@b.fr>", "\"Anna M.\" <anna@b.fr>", "\"Martin, Anna\" <anna@b.fr>",
                          "\"Martin;Anna\"<anna@b.fr>", "\"a \\\" b, <c@d.fr>\" <anna@b.fr>", "<anna@b.fr>"}) {
    const AdressesLues lues = LitAdresses(QString(nom) + ", c@d.fr");
    EXPECT_EQ(lues.Bonnes, QStringList({"anna@b.fr", "c@d.fr"})) << nom;
    EXPECT_TRUE(lues.Mauvaises.isEmpty()) << nom;
  }
}

TEST(MailAddresses, WhatIsNoneIsToldAndKeepsNoOtherBack) {
  for (const char* mal : {"a@b\r\nBcc: c@d", "a@b>\r\nRCPT TO:<c@d", "a@b\nc", "a b@c", "x <a@b> SIZE=1", "<a@b\r\n>x",
                          "a\tb@c", "|cmd@x", "/etc/passwd", "-oQ/tmp@x", ":include:x@y", "<>", "anna", "@b.fr",
                          "anna@", "anna@b..fr", "anna@.fr", "\"anna"}) {
    const AdressesLues lues = LitAdresses(QString::fromUtf8(mal) + ",ok@b.fr");
    EXPECT_EQ(lues.Bonnes, QStringList("ok@b.fr")) << mal;
    EXPECT_EQ(lues.Mauvaises, QStringList(QString::fromUtf8(mal).trimmed())) << mal;
  }
  EXPECT_TRUE(LitAdresses(QString("a@b") + QChar(0)).Bonnes.isEmpty());
  EXPECT_TRUE(LitAdresses(QString("a@b") + QChar(0x2028) + u'c').Bonnes.isEmpty());
  EXPECT_TRUE(LitAdresses(QString(400, 'x') + "@b.fr").Bonnes.isEmpty());
}

TEST(MailAddresses, AUserOfThisMachineIsAnAddressForItsOwnMailProgram) {
  EXPECT_EQ(LitAdresses("anna, /etc/passwd", true), (AdressesLues{{"anna"}, {"/etc/passwd"}}));
}

TEST(MailAddresses, AQuoteWithoutItsEndJoinsNothing) {
  EXPECT_EQ(LitAdresses("\"Anna <a@b.fr>, c@d.fr").Bonnes, QStringList({"a@b.fr", "c@d.fr"}));
  EXPECT_EQ(LitAdresses("Anna <a@b.fr, c@d.fr"), (AdressesLues{{"c@d.fr"}, {"Anna <a@b.fr"}}));
}

}  // namespace
}  // namespace vaktor::essai
