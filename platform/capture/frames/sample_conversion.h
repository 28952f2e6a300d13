// The pixels that the comparison reads, and no others, out of a frame in planes.
#pragma once

#include "engine/sampling.h"
#include "platform/capture/frames/pixel_conversion.h"

namespace vaktor {

struct RangEchantillons {
  quint8* Octets;
  qsizetype Pas;  ///< bytes from one row of samples to the next
};

/// Converts the pixels of one phase of a frame with EstPlanaire: bytes B, G, R, 0xff, the same that ConvertitImage
/// gives them. Those of a row come one behind the other. Any thread, no allocation. False when there is nothing to
/// convert with; the samples are then undefined.
bool ConvertitEchantillons(const PlansImage& plans, PhaseEchantillons phase, const RangEchantillons& vers);

}  // namespace vaktor
