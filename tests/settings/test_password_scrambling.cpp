// SPDX-License-Identifier: GPL-3.0-or-later
// Scrambling of passwords: the format to the digit, its asymmetry, and exactly which passwords come back.
#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QStringEncoder>

#include "settings/ansi_code_page.h"
#include "settings/password_scrambling.h"

namespace vaktor {
namespace {

QString Repete(char16_t caractere, qsizetype nombre) { return QString(nombre, QChar(caractere)); }

TEST(PageDeCodes, IsWindows1252) {
  // Independent of the table: the bytes of ISO 8859-1 where both agree, and every code of the block that they do not.
  for (int code = 0; code < 256; ++code) {
    const QChar c = CaractereAnsi(static_cast<quint8>(code));
    EXPECT_EQ(CodeAnsi(c), code);
    if (code < 0x80 || code > 0x9F) {
      EXPECT_EQ(c.unicode(), code);
    }
  }
  const QString bloc = QString::fromUtf8("€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ");
  ASSERT_EQ(bloc.size(), 32);
  for (int i = 0; i < 32; ++i) EXPECT_EQ(CaractereAnsi(static_cast<quint8>(0x80 + i)), bloc[i]) << i;
}

TEST(PageDeCodes, HasNoCodeForOtherCharacters) {
  int connus = 0;
  for (int u = 0; u < 0x10000; ++u) connus += CodeAnsi(QChar(static_cast<char16_t>(u))).has_value() ? 1 : 0;
  EXPECT_EQ(connus, 256);
  EXPECT_EQ(CodeAnsi(QChar(0x0080)), std::nullopt);
  EXPECT_EQ(CodeAnsi(QChar(0x0416)), std::nullopt);
  EXPECT_EQ(CodeAnsi(QChar(0xD83D)), std::nullopt);
}

TEST(CryptePass, ShiftsEachCharacterByItsPosition) {
  EXPECT_EQ(CryptePass(QStringLiteral("abc")), QStringLiteral("098100102"));
  EXPECT_EQ(CryptePass(QString::fromUtf8("é€")), QStringLiteral("234130"));
  EXPECT_EQ(CryptePass(QStringLiteral("\t")), QStringLiteral("010"));
}

TEST(DecryptePass, ShiftsEachGroupBack) {
  EXPECT_EQ(DecryptePass(QStringLiteral("098100102")), QStringLiteral("abc"));
  EXPECT_EQ(DecryptePass(QStringLiteral("234130")), QString::fromUtf8("é€"));
}

TEST(Brouillage, LeavesTheEmptyTextEmpty) {
  EXPECT_EQ(CryptePass(QString()), QString());
  EXPECT_EQ(DecryptePass(QString()), QString());
}

TEST(DecryptePass, GivesAStoredGroup999BackAsItStands) {
  for (int place = 0; place < 20; ++place) {
    const QString stocke = CryptePass(Repete(u'a', place)) + QStringLiteral("999");
    EXPECT_EQ(DecryptePass(stocke), stocke) << place;
  }
}

TEST(DecryptePass, GivesATextWithALetterInItsFirstGroupBackAsItStands) {
  for (const char* texte : {"a98100102", "0x8100102", "09z100102", "1e2100102", "5e1", "secret", "x"}) {
    EXPECT_EQ(DecryptePass(QString::fromLatin1(texte)), QString::fromLatin1(texte));
  }
}

TEST(DecryptePass, GivesUpAsAWholeWhenALaterGroupFails) {
  EXPECT_EQ(DecryptePass(QStringLiteral("0981001o2")), QStringLiteral("0981001o2"));
}

TEST(DecryptePass, DecodesAShorterLastGroupInTheSameWay) {
  EXPECT_EQ(DecryptePass(QStringLiteral("09899")), QStringLiteral("aa"));
  EXPECT_EQ(DecryptePass(QStringLiteral("0989")), QString(u'a') + QChar(7));
  EXPECT_EQ(DecryptePass(QStringLiteral("0981")), QStringLiteral("0981")) << "1 - 2 is negative";
}

TEST(DecryptePass, DoesNotUndoANegativeDifference) {
  // 0 - 1 = -1 gives 511, which is no code.
  EXPECT_EQ(DecryptePass(QStringLiteral("000")), QStringLiteral("000"));
  EXPECT_EQ(DecryptePass(QStringLiteral("098000")), QStringLiteral("098000"));
}

TEST(DecryptePass, AcceptsCodes0And255AndNothingBeyond) {
  EXPECT_EQ(DecryptePass(QStringLiteral("001")), QString(QChar(0)));
  EXPECT_EQ(DecryptePass(QStringLiteral("256")), QString(QChar(255)));
  EXPECT_EQ(DecryptePass(QStringLiteral("257")), QStringLiteral("257"));
}

TEST(DecryptePass, ReadsAGroupAsANumberLikeAnyOther) {
  EXPECT_EQ(DecryptePass(QStringLiteral(" 98")), QStringLiteral("a"));
  EXPECT_EQ(DecryptePass(QStringLiteral("+98")), QStringLiteral("a"));
  EXPECT_EQ(DecryptePass(QStringLiteral("   ")), QStringLiteral("   "));
  EXPECT_EQ(DecryptePass(QStringLiteral("nan")), QStringLiteral("nan"));
  EXPECT_EQ(DecryptePass(QStringLiteral("inf")), QStringLiteral("inf"));
}

TEST(Brouillage, WrapsCode255AtPosition1IntoANul) {
  EXPECT_EQ(CryptePass(Repete(0xFF, 1)), QStringLiteral("001"));
  EXPECT_EQ(DecryptePass(QStringLiteral("001")), QString(QChar(0)));
}

TEST(Brouillage, LosesAPasswordThatWrapsAtPosition134) {
  const QString motDePasse = Repete(u'a', 133) + u'z';  // code 122
  const QString stocke = CryptePass(motDePasse);
  EXPECT_TRUE(stocke.endsWith(QStringLiteral("001")));
  EXPECT_EQ(DecryptePass(stocke), stocke);
}

TEST(Brouillage, BringsAsciiBackUpTo128Characters) {
  EXPECT_EQ(DecryptePass(CryptePass(Repete(0x7F, 128))), Repete(0x7F, 128));
  EXPECT_NE(DecryptePass(CryptePass(Repete(0x7F, 129))), Repete(0x7F, 129));
}

TEST(Brouillage, PassesAPasswordWithoutCodeThroughInClear) {
  // The digits in front would decode; the wide blank would make a number of its group if it counted as a blank.
  for (const char* texte : {"пароль", "098100102Ж", "098\u2003100", "密码", "😀", "098100 9\u2003", "١٢٣"}) {
    const QString motDePasse = QString::fromUtf8(texte);
    EXPECT_EQ(CryptePass(motDePasse), motDePasse) << texte;
    EXPECT_EQ(DecryptePass(motDePasse), motDePasse) << texte;
  }
}

// The whole truth about which passwords of up to 999 characters come back, against random ones of every kind.
TEST(Brouillage, BringsBackExactlyWhatItsHeaderSays) {
  QRandomGenerator hasard(20240117);
  int revenus = 0, chiffres = 0, nuls = 0, clairs = 0;
  for (int essai = 0; essai < 4'000; ++essai) {
    QString motDePasse;
    const int genre = essai % 5;
    const int taille = hasard.bounded(genre == 4 ? 999 : 200);
    for (int i = 0; i < taille; ++i) {
      const int plafond = genre == 0 ? 127 : 256;
      const bool seul255 = genre == 4 || (genre == 3 && hasard.bounded(20) == 0);
      const quint8 code = seul255 ? 255 : static_cast<quint8>(hasard.bounded(genre == 3 ? 50 : plafond));
      motDePasse += genre == 1 && hasard.bounded(300) == 0 ? QChar(0x4E2D) : CaractereAnsi(code);
    }
    bool codable = true, enroule = false, perdu = false;
    QString avecNuls = motDePasse;
    for (int i = 0; i < taille; ++i) {
      const std::optional<quint8> code = CodeAnsi(motDePasse[i]);
      codable = codable && code.has_value();
      if (!code || *code + i + 1 <= 255) continue;
      enroule = true;
      if (*code == 255) {
        avecNuls[i] = QChar(0);
      } else {
        perdu = true;
      }
    }
    const QString stocke = CryptePass(motDePasse);
    const QString retour = DecryptePass(stocke);
    if (!codable) {
      ++clairs;
      ASSERT_EQ(retour, motDePasse);
    } else if (!enroule) {
      ++revenus;
      ASSERT_EQ(retour, motDePasse);
      ASSERT_EQ(stocke.size(), 3 * motDePasse.size());
    } else if (perdu) {
      ++chiffres;
      ASSERT_EQ(retour, stocke);
    } else {
      ++nuls;
      ASSERT_EQ(retour, avecNuls);
    }
  }
  // Each of the four ways was taken often, or this test would say little.
  for (const int nombre : {revenus, chiffres, nuls, clairs}) EXPECT_GT(nombre, 100);
}

}  // namespace
}  // namespace vaktor
