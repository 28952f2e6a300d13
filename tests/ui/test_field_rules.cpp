// SPDX-License-Identifier: GPL-3.0-or-later
// What a text becomes in each kind of field.
#include <gtest/gtest.h>

#include <QRandomGenerator>

#include "engine/live_interval.h"
#include "ui/fields/field_rules.h"

namespace vaktor {
namespace {

TEST(FieldRules, NumbersKeepDigitsOnlyAndStayIn32Bits) {
  EXPECT_EQ(NettoieNombre(QStringLiteral("12a"), QStringLiteral("0"), 0), QStringLiteral("12"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("-3,5 s"), QStringLiteral("0"), 0), QStringLiteral("35"));
  EXPECT_EQ(NettoieNombre(QString(), QStringLiteral("0"), 0), QStringLiteral("0"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("0"), QStringLiteral("0"), 0), QStringLiteral("0"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("0"), QStringLiteral("1"), 1), QStringLiteral("1"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("abc"), QStringLiteral("1"), 1), QStringLiteral("1"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("007"), QStringLiteral("1"), 1), QStringLiteral("007"));
  EXPECT_EQ(NettoieNombre(QString::fromUtf8("٣4²"), QStringLiteral("0"), 0), QStringLiteral("4"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("2147483648"), QStringLiteral("0"), 0), QStringLiteral("2147483647"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("2147483646"), QStringLiteral("0"), 0), QStringLiteral("2147483646"));
  EXPECT_EQ(NettoieNombre(QString(100000, u'9'), QStringLiteral("0"), 0), QStringLiteral("2147483647"));
  EXPECT_EQ(NettoieNombre(QString(100000, u'0'), QStringLiteral("1"), 1), QStringLiteral("1"));
}

TEST(FieldRules, IntervalKeepsTheDecimalCommaAndIsNeverZero) {
  EXPECT_EQ(NettoieIntervalle(QStringLiteral("10")), QStringLiteral("10"));
  EXPECT_EQ(NettoieIntervalle(QStringLiteral("0")), QStringLiteral("0,5"));
  EXPECT_EQ(NettoieIntervalle(QStringLiteral("0,0")), QStringLiteral("0,5"));
  EXPECT_EQ(NettoieIntervalle(QStringLiteral("0,25")), QStringLiteral("0,25"));
  EXPECT_EQ(NettoieIntervalle(QStringLiteral("0.5")), QStringLiteral("05")) << "a point is no decimal sign here";
  EXPECT_EQ(NettoieIntervalle(QStringLiteral("abc")), QStringLiteral("5"));
  EXPECT_EQ(NettoieIntervalle(QString()), QStringLiteral("5"));
  EXPECT_EQ(NettoieIntervalle(QStringLiteral(",,,")), QStringLiteral("0,5"));
  EXPECT_EQ(NettoieIntervalle(QStringLiteral("1,2,3")), QStringLiteral("1,23"));
  EXPECT_EQ(NettoieIntervalle(QString(100000, u'9')), QStringLiteral("2147483647"));
  EXPECT_EQ(NettoieIntervalle(QStringLiteral("0,") + QString(100, u'0') + u'1'), QStringLiteral("0,5"));
}

TEST(FieldRules, EveryIntervalIsReadByTheEngine) {
  QRandomGenerator hasard(20240501);
  const QString signes = QStringLiteral("0123456789,,,.-e x");
  for (int tour = 0; tour < 5000; ++tour) {
    QString texte;
    for (int i = hasard.bounded(14); i > 0; --i) texte += signes.at(hasard.bounded(static_cast<int>(signes.size())));
    const QString propre = NettoieIntervalle(texte);
    EXPECT_EQ(NettoieIntervalle(propre), propre) << texte.toStdString();
    IntervalleLive intervalle;
    EXPECT_GT(intervalle.LitSecondes(propre), 0.0F) << texte.toStdString();
  }
}

TEST(FieldRules, ServerLosesTheFolderBehindIt) {
  EXPECT_EQ(NettoieServeur(QStringLiteral("ftp.example.org\\www")), QStringLiteral("ftp.example.org"));
  EXPECT_EQ(NettoieServeur(QStringLiteral("ftp.example.org/a/b")), QStringLiteral("ftp.example.org"));
  EXPECT_EQ(NettoieServeur(QStringLiteral("ftp.example.org")), QStringLiteral("ftp.example.org"));
  EXPECT_EQ(NettoieServeur(QStringLiteral("ftp://x")), QStringLiteral("ftp:"));
  EXPECT_EQ(NettoieServeur(QStringLiteral("/")), QString());
}

TEST(FieldRules, AddressEndsInASlash) {
  EXPECT_EQ(TermineAdresse(QStringLiteral("http://x")), QStringLiteral("http://x/"));
  EXPECT_EQ(TermineAdresse(QStringLiteral("http://x/")), QStringLiteral("http://x/"));
  EXPECT_EQ(TermineAdresse(QStringLiteral("http:\\\\x")), QStringLiteral("http://x/"));
  EXPECT_EQ(TermineAdresse(QStringLiteral("http://x\\")), QStringLiteral("http://x//")) << "appended before the turn";
  EXPECT_EQ(TermineAdresse(QString()), QStringLiteral("/"));
}

TEST(FieldRules, BlanksAndFurtherLinesGo) {
  EXPECT_EQ(RetireBlancs(QString::fromUtf8(" a\t@ b\u00a0")), QStringLiteral("a@b"));
  EXPECT_EQ(GardePremiereLigne(QStringLiteral("one\r\ntwo")), QStringLiteral("one"));
  EXPECT_EQ(GardePremiereLigne(QStringLiteral("one")), QStringLiteral("one"));
}

TEST(FieldRules, ServerPortAndSenderAreEachAskedForAndOnlyWithSmtp) {
  Parametres complet;
  complet.SmtpActif = true;
  complet.SmtpServeur = QStringLiteral("smtp.example.org");
  complet.SmtpPort = QStringLiteral("25");
  complet.SmtpFrom = QStringLiteral("vaktor@example.org");
  EXPECT_FALSE(SmtpIncomplet(complet));
  for (QString Parametres::*const partie : {&Parametres::SmtpServeur, &Parametres::SmtpPort, &Parametres::SmtpFrom}) {
    Parametres reglages = complet;
    (reglages.*partie).clear();
    EXPECT_TRUE(SmtpIncomplet(reglages));
    reglages.SmtpActif = false;
    EXPECT_FALSE(SmtpIncomplet(reglages));
  }
}

TEST(FieldRules, WhoWantsPushesAloneNeedsNoMailServer) {
  Parametres reglages;
  reglages.PushAdresse = QStringLiteral("https://push.example.org/x");
  EXPECT_FALSE(SmtpIncomplet(reglages));
  reglages.SmtpFrom = QStringLiteral("a@example.org");
  EXPECT_TRUE(SmtpIncomplet(reglages)) << "a mail server that was begun";
}

TEST(FieldRules, ColourWordsWithTheirOldSpelling) {
  const char* mots[] = {"red", "green", "blue", "gray", "brawn", "yellow", "white"};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(DonneMotCouleur(i, QString()), QLatin1String(mots[i]));
  EXPECT_EQ(DonneMotCouleur(7, QStringLiteral("red")), QStringLiteral("red"));
  EXPECT_EQ(DonneMotCouleur(-1, QStringLiteral("red")), QStringLiteral("red"));
}

}  // namespace
}  // namespace vaktor
