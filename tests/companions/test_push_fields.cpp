// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of the push in the form of the mail settings.
#include <QJsonDocument>
#include <QJsonObject>

#include "companions/push_words.h"
#include "companions/rehearsal_words.h"
#include "smtp_bench.h"

namespace vaktor::essai {
namespace {

TEST_F(BancSmtp, TheFieldsOfThePushShowAndTakeTheSettings) {
  Reglages.PushAdresse = "https://push.example.org/a";
  Reglages.PushEntete = "X-Key: one two";
  Ouvre();
  EXPECT_EQ(Lit("TxtPush"), "https://push.example.org/a");
  EXPECT_EQ(Lit("TxtPushEntete"), "X-Key: one two");
  Tape("TxtPush", " https://b.org/c ");
  EXPECT_EQ(Reglages.PushAdresse, "https://b.org/c");
  Tape("TxtPushEntete", "X-Key: three four");
  EXPECT_EQ(Reglages.PushEntete, "X-Key: three four") << "its blanks are its own";
  EXPECT_EQ(Trouve<QLabel>("LblPush")->text(), "Push (https address)");
  EXPECT_EQ(Trouve<QLineEdit>("TxtPushEntete")->accessibleName(), "Header of the push");
  EXPECT_FALSE(Trouve<QLineEdit>("TxtPush")->toolTip().isEmpty());
  Trouve<QLineEdit>("TxtPush")->setFocus();
  EXPECT_FALSE(Trouve<QLineEdit>("TxtPushEntete")->displayText().contains("three")) << "not over a shoulder";
}

TEST_F(BancSmtp, OfSeveralLinesThatArePastedThePushTakesTheFirst) {
  Ouvre();
  Trouve<QLineEdit>("TxtPush")->setText("https://a.org/x\nhttps://b.org/y");
  EXPECT_EQ(Lit("TxtPush"), "https://a.org/x");
  EXPECT_EQ(Reglages.PushAdresse, "https://a.org/x");
  Trouve<QLineEdit>("TxtPushEntete")->setText("X-Key: one\r\nX-Other: two");
  EXPECT_EQ(Lit("TxtPushEntete"), "X-Key: one");
  EXPECT_EQ(Reglages.PushEntete, "X-Key: one");
}

TEST_F(BancSmtp, WhatCannotBeAPushIsRed) {
  Ouvre();
  const auto couleur = [this](const char* nom) { return Trouve(nom)->palette().color(QPalette::Text); };
  Tape("TxtPush", "push.example.org");
  EXPECT_EQ(couleur("TxtPush"), QColor(Qt::red));
  Tape("TxtPush", "http://push.example.org");
  EXPECT_EQ(couleur("TxtPush"), QColor(Qt::black));
  Tape("TxtPushEntete", "secret");
  EXPECT_EQ(couleur("TxtPushEntete"), QColor(Qt::red));
  Tape("TxtPushEntete", "");
  EXPECT_EQ(couleur("TxtPushEntete"), QColor(Qt::black));
}

TEST_F(BancSmtp, ThePushIsTriedWithWhatStandsInItsFields) {
  Ouvre();
  Tape("TxtPush", "https://b.org/c");
  Tape("TxtPushEntete", "X-Key: three");
  EXPECT_EQ(Trouve<QPushButton>("CmdEssaiPush")->text(), "Try");
  EXPECT_EQ(Trouve("CmdEssaiPush")->accessibleName(), "Try the push");
  EXPECT_FALSE(Trouve("CmdEssaiPush")->toolTip().isEmpty());
  Clique("CmdEssaiPush");
  const QJsonObject d = QJsonDocument::fromJson(Essai.Demande).object();
  EXPECT_EQ(d["pushadresse"], "https://b.org/c");
  EXPECT_EQ(d["pushentete"], "X-Key: three");
  EXPECT_EQ(d["sujet"], "[Test] Intrusion");
  EXPECT_EQ(d["langue"], 1);
  EXPECT_FALSE(d.contains("destination"));
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
  Essai.Dit("POST: HTTP 200");
  EXPECT_EQ(Trouve<QPlainTextEdit>("TxtEssai")->toPlainText(), "Upload - POST: HTTP 200");
  EXPECT_EQ(Trouve<QPushButton>("CmdEssai")->text(), "Cancel");
  Essai.Finit(FinEssai::kSansFin);
  const auto phrase = [this] { return Trouve<QLabel>("LblEssai")->text(); };
  EXPECT_EQ(phrase(), DonneMotsEssaiPush(Langue::kAnglais).SansFin);
  Reglages.LangueCourante = 0;
  Textes.Remplit(Langue::kFrancais);
  Forme->EcritMots();
  EXPECT_EQ(phrase(), DonneMotsEssaiPush(Langue::kFrancais).SansFin);
  EXPECT_EQ(Trouve<QPushButton>("CmdEssaiPush")->text(), "Essayer");
}

TEST_F(BancSmtp, ATrialOfThePushTakesThePlaceOfOneOfTheMailAndTheOtherWayRound) {
  Ouvre();
  Clique("CmdEssai");
  Trouve("CmdEssaiPush")->setFocus();
  QTest::keyClick(Trouve("CmdEssaiPush"), Qt::Key_Return);
  EXPECT_EQ(Essai.Lances, 2);
  EXPECT_TRUE(Essai.Demande.contains("pushadresse"));
  Essai.Finit(FinEssai::kImpossible);
  Clique("CmdEssai");
  EXPECT_EQ(Essai.Lances, 3);
  EXPECT_TRUE(Essai.Demande.contains("destination"));
  Essai.Finit(FinEssai::kSansFin);
  EXPECT_EQ(Trouve<QLabel>("LblEssai")->text(), DonneMotsEssaiMail(Langue::kAnglais).SansFin);
}

TEST_F(BancSmtp, WhoWantsPushesAloneIsAskedForNoMailServer) {
  Reglages.SmtpServeur.clear();
  Reglages.SmtpFrom.clear();
  Ouvre();
  Tape("TxtPush", "https://b.org/c");
  Forme->close();
  EXPECT_EQ(Boites.Textes.size(), 0);
  EXPECT_EQ(Dechargements, 1);
  EXPECT_TRUE(Reglages.SmtpActif) << "and nothing was changed for them";
}

TEST(MotsDuPush, KnowWhatIsNone) {
  for (const char* bonne : {"", " ", "https://a", "http://10.0.0.1:8080/x"})
    EXPECT_FALSE(EstPushAdresseMauvaise(bonne)) << bonne;
  for (const char* mauvaise : {"a.org", "ftp://a/", "https://"})
    EXPECT_TRUE(EstPushAdresseMauvaise(mauvaise)) << mauvaise;
  for (const char* bon : {"", "X: y", "Authorization: Bearer z"}) EXPECT_FALSE(EstPushEnteteMauvais(bon)) << bon;
  for (const char* mauvais : {"y", ": y", "X Y: z"}) EXPECT_TRUE(EstPushEnteteMauvais(mauvais)) << mauvais;
}

}  // namespace
}  // namespace vaktor::essai
