// SPDX-License-Identifier: GPL-3.0-or-later
// The text of the settings file: what is written comes back, and what people and disks do to it is survived.
#include <gtest/gtest.h>

#include <QRandomGenerator>

#include "settings/settings_text.h"

namespace vaktor {
namespace {

QString Lit(const char* ligne) {
  const TexteReglages lu = LitTexteReglages(QByteArray("[MAIL]\n") + ligne);
  EXPECT_EQ(lu.LignesIllisibles, 0) << ligne;
  return lu.Valeurs.value(QStringLiteral("MAIL/sujet"), QStringLiteral("MISSING"));
}

TEST(TexteReglages, AreWrittenInQuotesBySection) {
  const QByteArray texte =
      EcritTexteReglages({{"general/langue", "1"}, {"MAIL/sujet", "a \"b\" \\ c"}, {"MAIL/actif", "0"}});
  EXPECT_EQ(texte.toStdString(), "[MAIL]\nactif=\"0\"\nsujet=\"a \\\"b\\\" \\\\ c\"\n\n[%general]\nlangue=\"1\"\n");
}

TEST(TexteReglages, KeepUpperAndLowerCaseOfKeysApart) {
  const ValeursReglages valeurs = {
      {"SON/Repertoire", "/s.wav"}, {"PHOTO/repertoire", "/p"}, {"SON/repertoire", "x"}, {"FTP/HWNDVK", "4711"}};
  EXPECT_EQ(LitTexteReglages(EcritTexteReglages(valeurs)).Valeurs, valeurs);
}

TEST(TexteReglages, BringAnyValueBack) {
  QRandomGenerator hasard(7);
  const QString epices = QString::fromUtf8("\"\\@%;#=,[] \t\r\n\x01\x7fé€ЖxafF09n中😀") + QChar(0) + QChar(0xD800) +
                         QChar(0xDC00) + QChar(0xFEFF) + QChar(0x2028) + QChar(0x85) + QChar(0xFFFF);
  for (int essai = 0; essai < 5'000; ++essai) {
    QString valeur;
    for (int i = hasard.bounded(12); i > 0; --i) valeur += epices[hasard.bounded(static_cast<int>(epices.size()))];
    const ValeursReglages valeurs = {{"general/a", valeur}, {"MAIL/b", valeur + u'x'}, {"FTP/c", u'@' + valeur}};
    const QByteArray texte = EcritTexteReglages(valeurs);
    ASSERT_EQ(LitTexteReglages(texte).Valeurs, valeurs) << texte.toStdString();
    ASSERT_EQ(LitTexteReglages(texte).LignesIllisibles, 0);
  }
}

TEST(TexteReglages, ReadTheSectionGeneralUnderEachOfItsNames) {
  for (const char* nom : {"general", "General", "%general", "%General", " general "}) {
    EXPECT_EQ(LitTexteReglages(QByteArray("[") + nom + "]\nlangue=1").Valeurs.value("general/langue"),
              QStringLiteral("1"))
        << nom;
  }
}

TEST(TexteReglages, ReadWhatPeopleType) {
  EXPECT_EQ(Lit("sujet=Bonjour"), QStringLiteral("Bonjour"));
  EXPECT_EQ(Lit("  sujet =  Bonjour a tous \t\r"), QStringLiteral("Bonjour a tous"));
  EXPECT_EQ(Lit("sujet=0,5"), QStringLiteral("0,5")) << "a comma makes no list";
  EXPECT_EQ(Lit("sujet=a, b; c"), QStringLiteral("a, b; c"));
  EXPECT_EQ(Lit("sujet=\" a \""), QStringLiteral(" a "));
  EXPECT_EQ(Lit("sujet=\" a \" "), QStringLiteral(" a "));
  EXPECT_EQ(Lit("sujet=C:\\photos\\alarme"), QStringLiteral("C:\\photos\\alarme")) << "no escape, so a backslash";
  EXPECT_EQ(Lit("sujet=a=b"), QStringLiteral("a=b"));
  EXPECT_EQ(Lit("sujet="), QString());
  EXPECT_EQ(Lit("sujet=\"a"), QStringLiteral("a")) << "a quote that is never closed";
  EXPECT_EQ(Lit("sujet=@Variant(x)"), QStringLiteral("@Variant(x)"));
  EXPECT_EQ(Lit("sujet=@@x"), QStringLiteral("@x"));
  EXPECT_EQ(Lit("; sujet=a\n#sujet=b"), QStringLiteral("MISSING"));
  EXPECT_EQ(Lit("sujet=a\nsujet=b"), QStringLiteral("b")) << "the last one holds";
}

// As docs/settings.md says, so that whoever writes a path by hand knows which one comes through.
TEST(TexteReglages, ReadTheEscapesWithoutQuotesToo) {
  EXPECT_EQ(Lit("sujet=D:\\photos"), QStringLiteral("D:\\photos"));
  EXPECT_EQ(Lit("sujet=D:\\night"), QStringLiteral("D:\night"));
  EXPECT_EQ(Lit("sujet=D:\\\\night"), QStringLiteral("D:\\night"));
  EXPECT_EQ(Lit("sujet=a\\tb\\rc\\x41\\\"d"), QStringLiteral("a\tb\rcA\"d"));
  EXPECT_EQ(Lit("sujet=a\\0b"), QStringLiteral("a") + QChar(0) + u'b');
  EXPECT_EQ(Lit("sujet=a\\xyz\\"), QStringLiteral("a\\xyz\\"));
  EXPECT_EQ(Lit("sujet=a\\n "), QStringLiteral("a\n")) << "the blank behind it goes, the escape stays";
}

TEST(TexteReglages, ReadBytesThatAreNoUtf8AsWindows1252) {
  EXPECT_EQ(Lit("sujet=Alarme activ\xE9"
                "e \x80"),
            QString::fromUtf8("Alarme activée €"));
  EXPECT_EQ(LitTexteReglages("\xEF\xBB\xBF[MAIL]\nsujet=a").Valeurs.value("MAIL/sujet"), QStringLiteral("a"));
}

TEST(TexteReglages, DropTheMarkInFrontOfAFileWhoseFirstLineIsNoUtf8) {
  const TexteReglages lu = LitTexteReglages(
      "\xEF\xBB\xBF[Caf\xE9"
      "]\nsujet=a\n");
  EXPECT_EQ(lu.LignesIllisibles, 0);
  EXPECT_EQ(lu.Valeurs, ValeursReglages({{QString::fromUtf8("Café/sujet"), "a"}}));
}

TEST(TexteReglages, CountLinesThatMakeNoSenseAndKeepTheOthers) {
  const TexteReglages lu = LitTexteReglages("garbage\n[MAIL]\nsujet=a\n\x01\x02\xFF no\n=x\nactif=1\n");
  EXPECT_EQ(lu.LignesIllisibles, 3);
  EXPECT_EQ(lu.Valeurs, ValeursReglages({{"MAIL/sujet", "a"}, {"MAIL/actif", "1"}}));
}

TEST(TexteReglages, KeepTheFirstPartOfAValueThatALineBreakCut) {
  const TexteReglages lu = LitTexteReglages("[MAIL]\ncorp=\"one\ntwo\"\nsujet=\"s\"\n");
  EXPECT_EQ(lu.Valeurs.value("MAIL/corp"), QStringLiteral("one"));
  EXPECT_EQ(lu.Valeurs.value("MAIL/sujet"), QStringLiteral("s"));
  EXPECT_EQ(lu.LignesIllisibles, 1);
}

// Of a file that was cut short the last line alone looks odd, and no line is one that makes no sense.
TEST(TexteReglages, NameValuesThatLackTheirEnd) {
  const TexteReglages lu = LitTexteReglages("[MAIL]\nsujet=\"s\"\ncorp=a\"b\"\n[FTP]\nrefresh=\"1");
  EXPECT_EQ(lu.Coupees, QStringList("FTP/refresh"));
  EXPECT_EQ(lu.Valeurs.value("FTP/refresh"), QStringLiteral("1"));
  EXPECT_EQ(lu.LignesIllisibles, 0);
  EXPECT_EQ(LitTexteReglages("[a]\nb=\"x\\\"\n").Coupees, QStringList("a/b")) << "an escaped quote closes nothing";
}

TEST(TexteReglages, GiveValuesBehindADamagedSectionLineToNobody) {
  const TexteReglages lu = LitTexteReglages("[FTP]\npass=\"1\"\n[MA\npass=\"2\"\n[SON]\nindex=\"0\"\n");
  EXPECT_EQ(lu.Valeurs, ValeursReglages({{"FTP/pass", "1"}, {"SON/index", "0"}}));
  EXPECT_EQ(lu.LignesIllisibles, 2);
}

TEST(TexteReglages, KeepWhatTheyDoNotKnow) {
  const ValeursReglages valeurs = {{"My section/My key", "2"}, {"%x/%y", "3"}, {"a/b", "1"}, {"a b/c", "4"}};
  EXPECT_EQ(LitTexteReglages(EcritTexteReglages(valeurs)).Valeurs, valeurs);
}

TEST(TexteReglages, CountNamesThatCouldNotBeWrittenAgain) {
  const TexteReglages lu = LitTexteReglages("[a/b]\nc=1\n[d]\ne/f=1\n[g=2\n[h]\ni[=1\n\xEF\xBB\xBFj=1\nk=1\n[]\nl=1\n");
  EXPECT_EQ(lu.Valeurs, ValeursReglages({{"h/j", "1"}, {"h/k", "1"}}));
  EXPECT_EQ(lu.LignesIllisibles, 7);
}

TEST(TexteReglages, StandHalfAMegabyteInOneValue) {
  const ValeursReglages valeurs = {{"MAIL/corp", QString(qsizetype{512} * 1024, u'\x01')}, {"MAIL/sujet", "s"}};
  EXPECT_EQ(LitTexteReglages(EcritTexteReglages(valeurs)).Valeurs, valeurs);
}

}  // namespace
}  // namespace vaktor
