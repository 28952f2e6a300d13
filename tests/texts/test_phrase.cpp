// SPDX-License-Identifier: GPL-3.0-or-later
// What a number says of the language, and a text in every language.
#include <gtest/gtest.h>

#include "texts/phrase.h"

namespace vaktor {
namespace {

TEST(Langue, IsReadFromItsStoredNumberAndFromNoOther) {
  EXPECT_EQ(LitLangue(0), Langue::kFrancais);
  EXPECT_EQ(LitLangue(1), Langue::kAnglais);
  for (const qint32 stockee : {-1, static_cast<qint32>(Langue::kNombre), 7, INT32_MIN, INT32_MAX})
    EXPECT_EQ(LitLangue(stockee), std::nullopt) << stockee;
}

TEST(Langue, IsFrenchInSentencesWhenTheStoredNumberIsNone) {
  EXPECT_EQ(LangueParlee(1), Langue::kAnglais);
  for (const qint32 stockee : {0, -1, static_cast<qint32>(Langue::kNombre), 7})
    EXPECT_EQ(LangueParlee(stockee), Langue::kFrancais) << stockee;
}

TEST(Langue, EachHasACodeANameAndACountryOfItsOwn) {
  for (const Langue langue : kLangues) {
    EXPECT_EQ(DonneLocale(langue).name(), kPaysLangues.Dit(langue));
    EXPECT_EQ(DonneLocale(langue).name().section(u'_', 0, 0), kCodesLangues.Dit(langue));
    for (const Langue autre : kLangues) {
      EXPECT_EQ(kCodesLangues.Dit(langue) == kCodesLangues.Dit(autre), langue == autre);
      EXPECT_EQ(kNomsLangues.Dit(langue) == kNomsLangues.Dit(autre), langue == autre);
    }
  }
}

TEST(Phrase, SpeaksEachLanguageWithTheAccentsOfTheSource) {
  constexpr Phrase kMot{"Créer", "Make"};
  EXPECT_EQ(kMot.Dit(Langue::kFrancais), QStringLiteral("Cr\u00e9er"));
  EXPECT_EQ(kMot.Dit(Langue::kAnglais), QStringLiteral("Make"));
}

TEST(Phrase, FillsNamesInAtOnceSoThatOneMayHoldAPlaceOfTheOther) {
  constexpr Phrase kMot{"« %1 » de %2", "%2 has \"%1\""};
  EXPECT_EQ(kMot.Dit(Langue::kAnglais, QStringLiteral("%2"), QStringLiteral("Anna")),
            QStringLiteral("Anna has \"%2\""));
  EXPECT_EQ(kMot.Dit(Langue::kFrancais, QStringLiteral("%2"), QStringLiteral("Anna")),
            QString::fromUtf8("« %2 » de Anna"));
}

TEST(Phrase, IsKeptInEveryLanguageWhenItWasMadeAtRunTime) {
  const PhraseDite faite = PhraseDite::Compose([](Langue langue) { return kCodesLangues.Dit(langue) + u'!'; });
  for (const Langue langue : kLangues) EXPECT_EQ(faite.Dit(langue), kCodesLangues.Dit(langue) + u'!');
  EXPECT_EQ(PhraseDite(kCodesLangues).Dit(Langue::kAnglais), QStringLiteral("en"));
  EXPECT_NE(faite, PhraseDite(kCodesLangues));
}

}  // namespace
}  // namespace vaktor
