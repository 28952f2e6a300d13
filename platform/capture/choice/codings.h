// SPDX-License-Identifier: GPL-3.0-or-later
// How cameras code their pictures: the one table that everybody asks who needs a name, a price or words for it.
#pragma once

#include <span>

#include "texts/phrase.h"

namespace vaktor {

/// What a coding costs us, for the choice of a first format.
enum class CoutCodage {
  kConversion,  ///< packed or planar YUV: one cheap conversion
  kJpeg,        ///< to be decoded, each picture by itself
  kAutreBrut,   ///< other raw layouts
  kFilm,        ///< video streams, which need a decoder with a memory
  kInconnu      ///< what nobody may understand, raw sensor data for one
};

struct CodageCamera {
  const char* V4L2;              ///< four-character code as text (V4L2 pixel format, linux/videodev2.h)
  const char* Media;             ///< the media type by which GStreamer calls it
  const char* Format = nullptr;  ///< of "video/x-raw" there; null for anything encoded
  CoutCodage Cout = CoutCodage::kInconnu;
  Phrase Sens = {"", ""};  ///< what it means to the user, said behind its code; empty: nothing is said
};

/// All codings with a name in GStreamer. Several may share one there: the first of them is the one that is told back.
std::span<const CodageCamera> TousCodages();

/// Null for a code that is none of them.
const CodageCamera* TrouveCodage(const QString& code);

}  // namespace vaktor
