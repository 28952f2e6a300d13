// SPDX-License-Identifier: GPL-3.0-or-later
// What is understood of a conversation with a server, and what is said of its end.
#include <gtest/gtest.h>

#include "modules/mail/failure_advice.h"
#include "modules/mail/mail_bench.h"
#include "modules/mail/smtp_dialogue.h"

namespace vaktor::essai {
namespace {

TEST(Dialogue, AReplyOfSeveralLinesIsOne) {
  QStringList dits;
  RappelsEnvoi rappels;
  rappels.Suivi = [&](const QString& c, const QString& r) { dits << c + "=" + r; };
  DialogueSmtp d(rappels);
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
  DialogueSmtp d(rappels);
  d.NoteLigne("550-" + QByteArray(200, 'x'));
  for (int i = 0; i < 1000; ++i) d.NoteLigne("550-" + QByteArray(200, 'x'));
  d.NoteLigne("550 end");
  EXPECT_TRUE(d.ARefuse());
  EXPECT_LT(d.MotsRefus().size(), 10'000);
}

// Behind AUTH there are lines of ours that are no commands: name and password.
TEST(Dialogue, WhatIsNoCommandIsNeverTold) {
  QString dits;
  RappelsEnvoi rappels;
  rappels.Suivi = [&](const QString& c, const QString& r) { dits += c + "=" + r + "|"; };
  DialogueSmtp d(rappels);
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
  DialogueSmtp d(rappels);
  d.NoteLigne("220 hello");
  d.NoteCommande("QUIT");
  d.NoteLigne("502 never heard of it");
  EXPECT_EQ(dits, QStringList{"=220 hello"});
  EXPECT_FALSE(d.ARefuse());
}

TEST(Dialogue, A250BeforeTheDataIsNoAcceptance) {
  int acceptes = 0;
  RappelsEnvoi rappels;
  rappels.SurAccepte = [&] { ++acceptes; };
  DialogueSmtp d(rappels);
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
