// SPDX-License-Identifier: GPL-3.0-or-later
// The age at which a camera that gives nothing is lost.
#include <gtest/gtest.h>

#include "engine/signal_loss.h"

namespace vaktor {
namespace {

TEST(PerteSignal, IsFourTimesTheGapBetweenTwoSecondsAndAMinute) {
  EXPECT_EQ(PerteSignal::DelaiPour(33), 2000);
  EXPECT_EQ(PerteSignal::DelaiPour(500), 2000);
  EXPECT_EQ(PerteSignal::DelaiPour(501), 2004);
  EXPECT_EQ(PerteSignal::DelaiPour(3000), 12'000);
  EXPECT_EQ(PerteSignal::DelaiPour(15'000), 60'000);
  EXPECT_EQ(PerteSignal::DelaiPour(15'001), 60'000);
}

TEST(PerteSignal, ARateThatIsPromisedStandsForTheGapUntilOneWasSeen) {
  EXPECT_EQ(PerteSignal::DelaiPromis(30, 1), 2000);
  EXPECT_EQ(PerteSignal::DelaiPromis(0, 1), 2000) << "a camera that tells of no rate";
  EXPECT_EQ(PerteSignal::DelaiPromis(1, 2), 8000);
  EXPECT_EQ(PerteSignal::DelaiPromis(1, 1'000'000), 60'000);
}

TEST(TrousRecents, TwoPicturesAtOnceSayNothingYet) {
  TrousRecents trous;
  EXPECT_EQ(trous.Delai(), std::nullopt);
  trous.Note(1000, 1);
  EXPECT_EQ(trous.Delai(), std::nullopt);
  trous.Note(4000, 3000);
  EXPECT_EQ(trous.Delai(), 12'000);
}

TEST(TrousRecents, TheLongestCountsAndNotTheLast) {
  TrousRecents trous;
  for (const qint64 trou : {40, 3000, 40, 40}) trous.Note(10'000, trou);
  EXPECT_EQ(trous.Delai(), 12'000);
}

TEST(TrousRecents, AGapIsRememberedForAMinuteAndForgottenAfterTwo) {
  TrousRecents trous;
  trous.Note(0, 3000);
  qint64 maintenant = 0;
  const auto avance = [&](qint64 jusqua) {
    for (; maintenant < jusqua; maintenant += 500) trous.Note(maintenant + 500, 500);
  };
  avance(59'500);
  EXPECT_EQ(trous.Delai(), 12'000);
  avance(119'500);
  EXPECT_EQ(trous.Delai(), 12'000);
  avance(120'500);
  EXPECT_EQ(trous.Delai(), 2000);
}

TEST(TrousRecents, WhatWasBeforeALongSilenceIsForgottenWithIt) {
  TrousRecents trous;
  trous.Note(0, 3000);
  trous.Note(3000, 3000);
  trous.Note(200'000, 40);
  EXPECT_EQ(trous.Delai(), 2000);
  trous.Oublie();
  EXPECT_EQ(trous.Delai(), std::nullopt);
}

}  // namespace
}  // namespace vaktor
