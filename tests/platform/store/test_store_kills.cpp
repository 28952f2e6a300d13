// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/kill_at_random.h"

namespace vaktor {
namespace {

TEST(MagasinFichier, IsWholeAfterAKillAtAnyMomentOfASave) {
  const BilanTueries bilan = TueAuHasard(25, 1);
  EXPECT_EQ(bilan.EnPleinTravail, bilan.Tueries);
  EXPECT_EQ(bilan.Avance, bilan.Tueries);
}

}  // namespace
}  // namespace vaktor
