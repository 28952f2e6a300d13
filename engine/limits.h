// Where the detection ends. Each limit stands here with what happens at it.
#pragma once

#include <QtGlobal>

namespace vaktor {

// The table of samples.

/// The samples of the frame before are numbered from 1 to this, and the running index moves on by the sampling step for
/// each of them (engine/sampling.h: kEchantillonsMax of them fit). A zone that has more ends the analysis at its first
/// sample too many, and every later one at its first sample: the index stays behind the table until the program ends.
/// It is told as a detection that stands still. A camera is never given such a format while it offers another one.
inline constexpr qint32 kIndexMax = 1'000'000;

}  // namespace vaktor
