// SPDX-License-Identifier: GPL-3.0-or-later
// The comparison of one frame with the samples of the frame before: the samples of a zone, each
// colour taken as one whole number. A pure function over raw memory: no allocation, no call out, no state.
#pragma once

#include <QtGlobal>

#include "engine/detection_state.h"
#include "engine/raw_frame.h"
#include "engine/sampling.h"

namespace vaktor {

/// The samples of the frame before, in the order of the scan. One entry a sample and nothing between them.
/// `Entrees` has room for Nombre + kMarge values: wide stores write whole vectors and put back what they found.
struct TableEchantillons {
  static constexpr qint32 kMarge = 8;
  qint32* Entrees = nullptr;
  qint32 Nombre = 0;  ///< samples that the table can hold
};

struct ResultatComparaison {
  qint32 NbrPoints = 0;      ///< changed samples
  qint32 Echantillons = 0;   ///< samples compared and stored
  bool TablePleine = false;  ///< the scan stopped because the table has no entry for its next sample
  CadreMouvement Cadre;      ///< around the changed samples, pixels; means nothing when NbrPoints is 0
};

/// Instruction sets that the comparison is written for. All give the same answer and leave the same table.
enum class JeuInstructions { kPortable, kSse41, kAvx2 };

/// Whether this processor has it.
bool ConnaitJeu(JeuInstructions jeu);
/// The fastest one that this processor has. Asks the processor: call it once and keep the answer.
JeuInstructions ChoisitJeu();

/// Compares the samples of `zone` (both edges included, rows outside, columns inside) with the table's entries from
/// `premierRang` on, and stores each in its entry. A sample's colour is 0x00BBGGRR, or -1 outside the picture; it is
/// unchanged when it differs from the entry by no more than `tolerance`. `tolerance` is 1 to 7000000 in this program,
/// any value is handled. A zone with its edges in the wrong order has no sample.
ResultatComparaison CompareTrame(JeuInstructions jeu, const TrameBrute& trame, const ZoneDetection& zone,
                                 qint32 tolerance, const TableEchantillons& table, qint32 premierRang);

}  // namespace vaktor
