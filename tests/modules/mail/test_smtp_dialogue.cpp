// SPDX-License-Identifier: GPL-3.0-or-later
// What is understood of a conversation with a server, and what is said of its end.
#include <gtest/gtest.h>

#include "modules/mail/failure_advice.h"
#include "modules/mail/mail_bench.h"
#include "modules/mail/smtp_dialogue.h"
#include "modules/mail/smtp_reply.h"

namespace vaktor::essai {
namespace {

TEST(Dialogue, AReplyOfSeveralLinesIsOne) {
  QStringList dits;
  RappelsEnvoi rappels;
  rappels.Suivi = [&](const QString& c, const QString& r) { dits << c + "=" + r; };
  DialogueSmtp d(rappels, {});
  d.NoteLigne("220 hello");
  d.NoteCommande("AUTH PLAIN AGFubmEAczNjcmV0");
  d.NoteLigne("535-5.7.8 Username and Password not accepted.");
  d.NoteLigne("535 5.7.8 See https://exemple.fr");
  EXPECT_EQ(dits, QStringList({"=220 hello",
                               "AUTH=535 5.7.8 Username and Password not accepted. 5.7.8 See https://exemple.fr"}));
  EXPECT_EQ(d.CauseRefus(), CauseEchec::kConnexionRefusee);
}

TEST(Dialogue, AReplyWithoutAnEndFillsNoMemory) {
  const RappelsEnvoi rappels;
  DialogueSmtp d(rappels, {});
  d.NoteLigne("550-" + QByteArray(200, 'x'));
  for (int i = 0; i < 1000; ++i) d.NoteLigne("550-" + QByteArray(200, 'x'));
  d.NoteLigne("550 end");
  EXPECT_TRUE(d.ARefuse());
  EXPECT_LT(d.Refus().Mots.size(), 10'000);
}

// Behind AUTH there are lines of ours that are no commands: name and password.
TEST(Dialogue, WhatIsNoCommandIsNeverTold) {
  QString dits;
  RappelsEnvoi rappels;
  rappels.Suivi = [&](const QString& c, const QString& r) { dits += c + "=" + r + "|"; };
  DialogueSmtp d(rappels, {});
  d.NoteCommande("AUTH LOGIN");
  d.NoteLigne("334 VXNlcm5hbWU6");
  d.NoteCommande("YW5uYQ==");
  d.NoteLigne("334 UGFzc3dvcmQ6");
  d.NoteCommande("czNjcmV0");
  d.NoteLigne("535 no");
  EXPECT_EQ(dits, "AUTH=334 VXNlcm5hbWU6|AUTH=334 UGFzc3dvcmQ6|AUTH=535 no|");
}

TEST(Dialogue, TheFarewellIsAboutNoMail) {
  QStringList dits;
  RappelsEnvoi rappels;
  rappels.Suivi = [&](const QString& c, const QString& r) { dits << c + "=" + r; };
  DialogueSmtp d(rappels, {});
  d.NoteLigne("220 hello");
  d.NoteCommande("QUIT");
  d.NoteLigne("502 never heard of it");
  EXPECT_EQ(dits, QStringList{"=220 hello"});
  EXPECT_FALSE(d.ARefuse());
}

TEST(Dialogue, A250BeforeTheDataIsNoAcceptance) {
  int acceptes = 0;
  RappelsEnvoi rappels;
  rappels.SurAccepte = [&](const QList<VerdictAdresse>&) { ++acceptes; };
  DialogueSmtp d(rappels, {});
  d.NoteCommande("MAIL FROM:<a@b>");
  d.NoteLigne("250 ok");
  d.NoteCommande("DATA");
  d.NoteLigne("250 what");
  EXPECT_FALSE(d.EstAccepte());
  d.NoteCommande("DATA");
  d.NoteLigne("354 go");
  d.NoteLigne("250 ok");
  EXPECT_TRUE(d.EstAccepte());
  d.NoteLigne("250 ok");
  EXPECT_EQ(acceptes, 1);
}

TEST(Dialogue, WhatIsOfferedBeforeTheEncryptionDoesNotHoldBehindIt) {
  const RappelsEnvoi rappels;
  DialogueSmtp d(rappels, {});
  d.NoteCommande("EHLO x");
  d.NoteLigne("250-test.server");
  d.NoteLigne("250-AUTH PLAIN");
  d.NoteLigne("250 STARTTLS");
  d.NoteCommande("STARTTLS");
  d.NoteLigne("220 go");
  d.NoteCommande("EHLO x");
  d.NoteLigne("250-AUTH cram-md5 LOGIN");
  d.NoteLigne("250-AUTH=CRAM-MD5 LOGIN");
  d.NoteLigne("250 HELP");
  EXPECT_EQ(d.Mecanismes(), QByteArrayList({"CRAM-MD5", "LOGIN", "CRAM-MD5", "LOGIN"}));
  d.NoteCommande("AUTH PLAIN AGFubmEAczNjcmV0");
  EXPECT_EQ(d.Mecanisme(), "PLAIN");
}

struct Refus {
  const char* Verbe;
  const char* Mots;
  CauseEchec Cause;
};

// The words are those of servers in wide use.
TEST(Replies, TheCodeAndTheWordsCountMoreThanTheCommand) {
  using enum CauseEchec;
  const Refus refus[] = {
      {"MAIL", "552 5.3.4 Message size exceeds fixed limit", kTropGros},
      {"MAIL", "552 message too large", kTropGros},
      {"DATA", "552 5.3.4 Error: message file too big", kTropGros},
      {"DATA", "550 5.3.4 too big", kTropGros},
      {"RCPT", "552 5.2.2 user is over quota", kSansPlace},
      {"RCPT", "452 4.2.2 mailbox full", kSansPlace},
      {"DATA", "451 4.7.1 please try again later", kReporte},
      {"MAIL", "451 4.3.0 try later", kReporte},
      {"RCPT", "450 4.2.0 Greylisted", kReporte},
      {"DATA", "452 4.3.1 Insufficient system storage", kReporte},
      {"RCPT", "554 5.7.1 <a@b.fr>: Relay access denied", kConnexionDemandee},
      {"RCPT", "550 relay not permitted", kConnexionDemandee},
      {"MAIL", "530 5.7.0 Authentication Required", kConnexionDemandee},
      {"MAIL", "530 5.7.0 Must issue a STARTTLS command first", kTls},
      {"MAIL", "550 5.7.1 authentication required", kConnexionDemandee},
      {"RCPT", "553 5.7.1 <c@d.fr>: Sender address rejected: not owned by user anna", kExpediteurRefuse},
      {"RCPT", "550 5.1.8 domain of sender does not exist", kExpediteurRefuse},
      {"MAIL", "550 5.1.0 not welcome", kExpediteurRefuse},
      {"RCPT", "550 5.1.1 no such user", kDestinataireRefuse},
      {"DATA", "554 5.7.1 spam", kMessageRefuse},
      {"DATA", "421 4.7.0 too busy", kServeurRefuse},
      {"AUTH", "535 5.7.8 wrong", kConnexionRefusee},
      {"AUTH", "454 4.7.0 temporary failure", kServeurRefuse},
      {"STARTTLS", "454 4.7.0 TLS not available", kTls},
      {"", "554 5.7.1 no SMTP service here", kServeurRefuse}};
  for (const Refus& r : refus) {
    const ReponseSmtp reponse{r.Verbe, QByteArray(r.Mots).left(3).toInt(), r.Mots};
    EXPECT_EQ(ComprendRefus(reponse, false), r.Cause) << r.Mots;
  }
}

TEST(Replies, WhoHasLoggedInIsNotToldToLogIn) {
  EXPECT_EQ(ComprendRefus({"RCPT", 554, "554 5.7.1 Relay access denied"}, true), CauseEchec::kDestinataireRefuse);
}

TEST(Replies, OnlyWhatIsSaidOfThisMailLetsTheOthersPass) {
  EXPECT_TRUE(EstRefusDuCourriel({"RCPT", 554, "554 5.7.1 Relay access denied"}));
  EXPECT_TRUE(EstRefusDuCourriel({"MAIL", 552, "552 too large"}));
  EXPECT_FALSE(EstRefusDuCourriel({"MAIL", 530, "530 login"}));
  EXPECT_FALSE(EstRefusDuCourriel({"DATA", 421, "421 bye"}));
  EXPECT_FALSE(EstRefusDuCourriel({"AUTH", 535, "535 wrong"}));
}

TEST(Replies, ASmallerMailIsTriedWhereItMayHelp) {
  EXPECT_TRUE(DemandeMoinsGros({"RCPT", 552, "552 5.2.2 mailbox full"}));
  EXPECT_TRUE(DemandeMoinsGros({"DATA", 554, "554 5.3.4 too big"}));
  EXPECT_FALSE(DemandeMoinsGros({"DATA", 554, "554 5.7.1 spam, see 5.3.4"}));
  EXPECT_FALSE(DemandeMoinsGros({"DATA", 554, "554 spam, see 5.3.4"})) << "the code stands in its place or not at all";
  EXPECT_FALSE(DemandeMoinsGros({"DATA", 452, "452 4.3.4 too big now"}));
}

TEST(Advice, EachCauseHasOneInBothLanguages) {
  ReglagesEnvoi reglages;
  reglages.Serveur = "smtp.exemple.fr";
  for (int i = 1; i <= static_cast<int>(CauseEchec::kInterrompu); ++i) {
    const AvisEchec avis = ComposeAvis({.Cause = static_cast<CauseEchec>(i), .MotsServeur = "dit"}, reglages);
    EXPECT_TRUE(avis.Sujet.startsWith("mail-")) << i;
    EXPECT_GT(avis.Mots.Dit(Langue::kFrancais).size(), 20) << i;
    EXPECT_GT(avis.Mots.Dit(Langue::kAnglais).size(), 20) << i;
    EXPECT_NE(avis.Mots.Dit(Langue::kFrancais), avis.Mots.Dit(Langue::kAnglais));
    EXPECT_FALSE(avis.Mots.Dit(Langue::kFrancais).contains('%'));
    EXPECT_EQ(avis.MotsServeur, "dit");
  }
}

TEST(Advice, OfARehearsalPromisesNothingThatIsKept) {
  ReglagesEnvoi reglages;
  reglages.Serveur = "smtp.exemple.fr";
  for (int i = 0; i < static_cast<int>(CauseEchec::kFichier); ++i) {
    const AvisEchec avis = ComposeAvisEssai({.Cause = static_cast<CauseEchec>(i), .MotsServeur = "dit"}, reglages);
    EXPECT_GT(avis.Mots.Dit(Langue::kFrancais).size(), 20) << i;
    EXPECT_GT(avis.Mots.Dit(Langue::kAnglais).size(), 20) << i;
    for (const char* mot : {"kept", "again.", "pictures"})
      EXPECT_FALSE(avis.Mots.Dit(Langue::kAnglais).contains(mot)) << i;
    for (const char* mot : {"gardé", "de nouveau", "photos"})
      EXPECT_FALSE(avis.Mots.Dit(Langue::kFrancais).contains(QString::fromUtf8(mot))) << i;
    EXPECT_EQ(avis.Sujet, ComposeAvis({.Cause = static_cast<CauseEchec>(i)}, reglages).Sujet);
  }
}

}  // namespace
}  // namespace vaktor::essai
