// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/typed_text.h"

namespace vaktor {
namespace {

TEST(TypedText, NoBlankOfAnyKindStaysWhereverItStands) {
  EXPECT_EQ(RetireBlancs(QStringLiteral("  anna @ example.org\t")), QStringLiteral("anna@example.org"));
  EXPECT_EQ(RetireBlancs(QStringLiteral("an\u00a0na\u2003\r\n")), QStringLiteral("anna")) << "as a web page gives them";
  EXPECT_EQ(RetireBlancs(QStringLiteral(" \n")), QString());
}

TEST(TypedText, OfAPasswordTheCommonBlankAndTheTabGoAndNothingElse) {
  EXPECT_EQ(RetireEspaces(QStringLiteral(" p\u00a0w\t\u2003d ")), QStringLiteral("p\u00a0w\u2003d"));
}

TEST(TypedText, TheFirstLineEndsWhereAnySystemEndsALine) {
  for (const QChar saut : {QChar(u'\n'), QChar(u'\r'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)}) {
    EXPECT_EQ(GardePremiereLigne(QStringLiteral("one two") + saut + QStringLiteral("three")), QStringLiteral("one two"))
        << int{saut.unicode()};
  }
  EXPECT_EQ(GardePremiereLigne(QStringLiteral("one two")), QStringLiteral("one two"));
  EXPECT_EQ(GardePremiereLigne(QStringLiteral("\nthree")), QString());
}

// Whoever catches every exception, a log for one, knows nothing of descriptions.
TEST(Failure, SaysItsDescriptionToWhoeverCatchesAnyException) {
  const Echec echec(kAccesFichier, QStringLiteral("caf\u00e9"));
  EXPECT_STREQ(static_cast<const std::exception&>(echec).what(), "caf\xc3\xa9");
  EXPECT_EQ(echec.Numero(), 75);
}

}  // namespace
}  // namespace vaktor
