// SPDX-License-Identifier: GPL-3.0-or-later
// The ages at which a camera that gives nothing is told and opened again.
#include <gtest/gtest.h>

#include "engine/signal_loss.h"

namespace vaktor {
namespace {

TEST(PerteSignal, ACameraOfAUsualRateIsGivenTheAgeItself) {
  EXPECT_EQ(PerteSignal::kDite, 2000);
  EXPECT_EQ(PerteSignal::kReouverte, 2000);
  EXPECT_EQ(PerteSignal::DelaiPour(2000, 30, 1), 2000);
  EXPECT_EQ(PerteSignal::DelaiPour(700, 0, 1), 700) << "a camera that tells of no rate";
}

TEST(PerteSignal, ASlowCameraIsGivenFourOfItsPeriodsAndNeverMoreThanAMinute) {
  EXPECT_EQ(PerteSignal::DelaiPour(2000, 1, 2), 8000);
  EXPECT_EQ(PerteSignal::DelaiPour(9000, 1, 2), 9000);
  EXPECT_EQ(PerteSignal::DelaiPour(2000, 1, 1'000'000), 60'000);
  EXPECT_EQ(PerteSignal::DelaiPour(90'000, 1, 1'000'000), 90'000) << "an age that is longer itself";
}

}  // namespace
}  // namespace vaktor
