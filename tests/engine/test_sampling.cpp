// SPDX-License-Identifier: GPL-3.0-or-later
// Step, capacity and phase: the numbers that comparison, view, capture and choice of format have in common.
#include <gtest/gtest.h>

#include <limits>

#include "engine/sampling.h"

namespace vaktor {
namespace {

TEST(Sampling, EveryThirdPixelAndSoManySamples) {
  EXPECT_EQ(kPasEchantillon, 3);
  EXPECT_EQ(kEchantillonsMax, 333'334) << "entries 1, 4, 7 and so on to 1,000,000";
}

TEST(Sampling, BothEdgesCountAndEdgesInTheWrongOrderHaveNone) {
  EXPECT_EQ(CompteEchantillons(0, 0), 1);
  EXPECT_EQ(CompteEchantillons(1, 3), 1);
  EXPECT_EQ(CompteEchantillons(1, 4), 2);
  EXPECT_EQ(CompteEchantillons(5, 4), 0);
  EXPECT_EQ(CompteEchantillons(-4, 2), 3);
  EXPECT_EQ(CompteEchantillons(std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()), 1'431'655'766);
}

TEST(Sampling, ARowThatBeginsWithASampleHasOneForEachStepBegun) {
  EXPECT_EQ(EchantillonsParmi(0), 0);
  EXPECT_EQ(EchantillonsParmi(1), 1);
  EXPECT_EQ(EchantillonsParmi(3), 1);
  EXPECT_EQ(EchantillonsParmi(4), 2);
  EXPECT_EQ(EchantillonsParmi(640), 214);
}

TEST(Sampling, ThePhaseOfAScanThatBeginsLeftOfThePictureIsThatOfItsFirstSampleInIt) {
  EXPECT_EQ(PhaseDe(0), 0);
  EXPECT_EQ(PhaseDe(5), 2);
  EXPECT_EQ(PhaseDe(-1), 2);
  EXPECT_EQ(PhaseDe(-3), 0);
  EXPECT_EQ(PhaseDe(-4), 2);
}

}  // namespace
}  // namespace vaktor
