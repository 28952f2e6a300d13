// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/kill_at_random.h"

namespace vaktor {
namespace {

TEST(MagasinFichier, IsWholeAfterHundredsOfKillsAtRandomMoments) {
  const BilanTueries bilan = TueAuHasard(600, QRandomGenerator::global()->generate());
  EXPECT_EQ(bilan.EnPleinTravail, 600);
  EXPECT_EQ(bilan.Avance, 600);
}

}  // namespace
}  // namespace vaktor
