// SPDX-License-Identifier: GPL-3.0-or-later
// The pixels that the comparison reads, and no others, out of a frame in planes.
#pragma once

#include <QtGlobal>

#include "engine/sampling.h"
#include "platform/capture/frames/pixel_conversion.h"

namespace vaktor {

/// Of the bytes `de`, the first and those in steps from it: `nombre` of them into `vers`. `lisibles`: how many bytes
/// the row has from there on; none behind them is read.
void PrendUnSurPas(const quint8* de, qint32 lisibles, quint8* vers, qint32 nombre);

/// The same where two pixels share a byte: in steps of three pixels those at 0, 1, 3, 4, 6, ..., where the first pixel
/// is the first one of its pair, those at 0, 2, 3, 5, 6, ..., where it is the second (`impair`).
void PrendUnSurPasParPaires(const quint8* de, qint32 lisibles, bool impair, quint8* vers, qint32 nombre);

struct RangEchantillons {
  quint8* Octets;
  qsizetype Pas;  ///< bytes from one row of samples to the next
};

/// Converts the pixels of one phase of a frame with EstPlanaire: bytes B, G, R, 0xff, the same that ConvertitImage
/// gives them. Those of a row come one behind the other. Any thread, no allocation. False when there is nothing to
/// convert with; the samples are then undefined.
bool ConvertitEchantillons(const PlansImage& plans, PhaseEchantillons phase, const RangEchantillons& vers);

}  // namespace vaktor
