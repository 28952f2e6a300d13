// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences file: its small language, and what damage costs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QStringEncoder>
#include <algorithm>

#include "platform/accounts/foreign_file.h"
#include "platform/accounts/mozilla_prefs.h"

namespace vaktor::essai {
namespace {

using testing::ElementsAre;

/// "name=value" of all preferences; texts in quotation marks.
std::vector<std::string> Lit(const QByteArray& octets) {
  const Prefs prefs = LitPrefs(octets, "");
  std::vector<std::string> lignes;
  for (auto pref = prefs.Valeurs.cbegin(); pref != prefs.Valeurs.cend(); ++pref) {
    QByteArray valeur;
    if (const auto* texte = std::get_if<QByteArray>(&*pref)) {
      valeur = '"' + *texte + '"';
    } else if (const auto* nombre = std::get_if<qint32>(&*pref)) {
      valeur = QByteArray::number(*nombre);
    } else {
      valeur = std::get<bool>(*pref) ? "true" : "false";
    }
    lignes.push_back((pref.key() + '=' + valeur).toStdString());
  }
  std::ranges::sort(lignes);
  return lignes;
}

TEST(Preferences, TextsNumbersAndTruthValues) {
  EXPECT_THAT(Lit("user_pref(\"a\", \"x\");\nuser_pref(\"b\", 25);\nuser_pref(\"c\", -7);\nuser_pref(\"d\", +3);\n"
                  "user_pref(\"e\", true);\nuser_pref(\"f\", false);\nuser_pref(\"g\", \"\");"),
              ElementsAre("a=\"x\"", "b=25", "c=-7", "d=3", "e=true", "f=false", "g=\"\""));
}

TEST(Preferences, BlanksAndCommentsAnywhere) {
  EXPECT_THAT(Lit("# one\n// two\n/* three\nuser_pref(\"no\", 1); */user_pref /**/ ( 'a' // x\n , \n\t2 ) ; "
                  "user_pref(\"b\",3);user_pref(\"c\",4); // user_pref(\"no\", 5);\r\nuser_pref(\"d\",6);"),
              ElementsAre("a=2", "b=3", "c=4", "d=6"));
}

TEST(Preferences, CommentMarksAndClosingSignsInsideATextAreText) {
  EXPECT_THAT(Lit(R"(user_pref("a", "http://x/*y*/ # ); ' user_pref(\"b\", 1);");)"),
              ElementsAre(R"(a="http://x/*y*/ # ); ' user_pref("b", 1);")"));
}

TEST(Preferences, Escapes) {
  EXPECT_THAT(Lit(R"(user_pref("a", "\"\'\\\n\r\x41\xe9\u00e9\u65E5");)"),
              ElementsAre("a=\"\"'\\\n\rA\u00e9\u00e9\u65e5\""));
  EXPECT_THAT(Lit(R"(user_pref("\u0061", "\uD83D\uDE00");)"), ElementsAre("a=\"\U0001F600\""));
}

TEST(Preferences, BrokenEscapesCostTheirLine) {
  for (const char* texte : {R"(\q)", R"(\x4)", R"(\xg1)", R"(\u12)", R"(\x00)", R"(\u0000)", R"(\uD83D)", R"(\uD83Dx)",
                            R"(\uD83DA)", R"(\uD83D\u0041)", R"(\uDE00)", R"(\uDE00\uD83D)", "\\", "\\\n"}) {
    EXPECT_THAT(Lit(QByteArray("user_pref(\"a\", \"") + texte + "\");\nuser_pref(\"b\", 1);"), ElementsAre("b=1"))
        << texte;
  }
}

TEST(Preferences, NumbersOf32Bits) {
  EXPECT_THAT(Lit("user_pref(\"a\", 2147483647);user_pref(\"b\", -2147483648);"),
              ElementsAre("a=2147483647", "b=-2147483648"));
  for (const char* nombre : {"2147483648", "-2147483649", "99999999999999999999999999", "-", "+", "1.5", "12abc",
                             "0x10", "--1", "truex", "True", "null", ""}) {
    EXPECT_THAT(Lit(QByteArray("user_pref(\"a\", ") + nombre + ");\nuser_pref(\"b\", 1);"), ElementsAre("b=1"))
        << nombre;
  }
}

TEST(Preferences, ADamagedLineCostsItselfOnly) {
  for (const char* ligne : {"user_pref(\"a, 1);",
                            "user_pref(\"a\" 1);",
                            "user_pref(\"a\", \"1);",
                            "user_pref \"a\", 1);",
                            "pref(\"a\", 1);",
                            "user_pref(\"\", 1);",
                            "user_pref(a, 1);",
                            "user_pref(\"a\", 1)x;",
                            "\"",
                            "'",
                            "user_pref",
                            "user_pref(",
                            "user_pref(\"a\"",
                            "user_pref(\"a\",",
                            "user_pref(\"a\", 1",
                            "user_pref(\"a\", 1)",
                            "user_pref(\"a\", x",
                            ";",
                            ")",
                            "\\",
                            "\x01\x02\xff\xfe"}) {
    EXPECT_THAT(Lit(QByteArray(ligne) + "\nuser_pref(\"b\", 1);\n"), ElementsAre("b=1")) << ligne;
  }
  EXPECT_THAT(Lit(QByteArray("user_pref(\"a\", \"x\0y\");\r", 23) + "user_pref(\"b\", 1);\n"), ElementsAre("b=1"));
}

TEST(Preferences, AFileThatBreaksOffKeepsWhatStoodBefore) {
  const QByteArray entier = "user_pref(\"a\", 1);\nuser_pref(\"b\", \"\\u00e9\");";
  for (qsizetype i = 18; i < entier.size(); ++i) EXPECT_THAT(Lit(entier.first(i)), ElementsAre("a=1")) << i;
  EXPECT_THAT(Lit("user_pref(\"a\", 1);/* user_pref(\"b\", 1);"), ElementsAre("a=1"));
}

TEST(Preferences, TheLastOfOneNameHolds) {
  EXPECT_THAT(Lit("user_pref(\"a\", 1);user_pref(\"a\", \"x\");"), ElementsAre("a=\"x\""));
}

TEST(Preferences, BytesThatAreNotUtf8AreLatin1) {
  EXPECT_THAT(Lit("user_pref(\"a\", \"\xe9t\xe9\");user_pref(\"b\", \"\xc3\xa9\");"),
              ElementsAre("a=\"\u00e9t\u00e9\"", "b=\"\u00e9\""));
  EXPECT_THAT(Lit("user_pref(\"a\", \"\xe9\\u65E5\");"), ElementsAre("a=\"\u00e9\u65e5\""))
      << "and escapes beside them";
}

TEST(Preferences, ByteOrderMarks) {
  const QString texte = QStringLiteral("user_pref(\"a\", \"\u00e9\U0001F600\");");
  const auto marque = [&](QStringConverter::Encoding genre) {
    return SansMarque(QStringEncoder(genre, QStringConverter::Flag::WriteBom)(texte));
  };
  for (const auto genre : {QStringConverter::Utf8, QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
    EXPECT_EQ(marque(genre), texte.toUtf8());
  }
  EXPECT_EQ(SansMarque("\xff\xfe"), "");
  EXPECT_EQ(SansMarque("\xef\xbb"), "\xef\xbb");
  EXPECT_TRUE(SansMarque(QByteArray("\xff\xfe\x00\xd8\x41", 5)).isValidUtf8()) << "half a pair and half a character";
}

TEST(Preferences, TypesDoNotTurnIntoEachOther) {
  const Prefs prefs = LitPrefs("user_pref(\"t\", \"25\");user_pref(\"n\", 25);user_pref(\"v\", true);", "");
  EXPECT_EQ(prefs.Texte("t"), "25");
  EXPECT_EQ(prefs.Texte("n"), "");
  EXPECT_EQ(prefs.Texte("v"), "");
  EXPECT_EQ(prefs.Texte("x"), "");
  EXPECT_EQ(prefs.Nombre("n", 1), 25);
  EXPECT_EQ(prefs.Nombre("t", 1), 1);
  EXPECT_EQ(prefs.Nombre("x", 1), 1);
}

TEST(Preferences, LimitsOfLengthAndNumber) {
  const auto ligne = [](qsizetype nom, qsizetype texte) {
    return "user_pref(\"" + QByteArray(nom, 'n') + "\", \"" + QByteArray(texte, 't') + "\");\n";
  };
  EXPECT_EQ(LitPrefs(ligne(kNomPrefMax, kTextePrefMax), "").Valeurs.size(), 1);
  EXPECT_EQ(LitPrefs(ligne(kNomPrefMax + 1, 1), "").Valeurs.size(), 0);
  EXPECT_EQ(LitPrefs(ligne(1, kTextePrefMax + 1), "").Valeurs.size(), 0);
  EXPECT_EQ(LitPrefs("user_pref(\"" + QByteArray(kNomPrefMax, '\xe9') + "\", 1);", "").Valeurs.size(), 0)
      << "counted as UTF-8";
  EXPECT_THAT(Lit(ligne(1, kTextePrefMax + 1) + "user_pref(\"b\", 1);"), ElementsAre("b=1"));

  QByteArray foule;
  for (int i = 0; i < kPrefsMax + 10; ++i) foule += "user_pref(\"m." + QByteArray::number(i) + "\", 1);\n";
  const Prefs prefs = LitPrefs(foule + "user_pref(\"m.7\", 2);", "m.");
  EXPECT_EQ(prefs.Valeurs.size(), kPrefsMax);
  EXPECT_EQ(prefs.Nombre("m.7", 0), 2) << "one that is known already still changes";
  EXPECT_EQ(prefs.Nombre("m." + QByteArray::number(kPrefsMax), 0), 0);
}

TEST(Preferences, OnlyThePrefixIsKept) {
  const Prefs prefs =
      LitPrefs("user_pref(\"mail.a\", 1);user_pref(\"mailnews\", 2);user_pref(\"x.mail.\", 3);", "mail.");
  EXPECT_EQ(prefs.Valeurs.keys(), QByteArrayList{"mail.a"});
}

}  // namespace
}  // namespace vaktor::essai
