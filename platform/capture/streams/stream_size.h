// SPDX-License-Identifier: GPL-3.0-or-later
// How large the pictures of a coding are that our own decoder does not know, by what stands at their head.
#pragma once

#include <gst/gst.h>

#include <QtGlobal>
#include <span>

namespace vaktor {

/// Whether these bytes, the beginning of what a decoder is fed with, ask for a picture of more than kPixelsMaximum
/// pixels. Of Theora, PNG and JPEG 2000, whose decoders take their memory by it, whatever the film's header has told.
/// False of all other bytes.
bool DemandeTropDePixels(std::span<const quint8> octets);

/// From now on the first such beginning that reaches the decoder goes no further: it is an error of it, and noted with
/// the "decodebin" that the decoder lies in.
void GardeEntree(GstElement* decodeur);

/// That what a film is packed in, or a picture's own head, tells a size above the limit: "decodebin" asks one decoder
/// after the other, keeps their refusals to itself, and tells in the end that none is there.
void NoteTropDePixels(GstElement* decodage);
bool ANoteTropDePixels(GstObject* decodage);  ///< nullptr: nobody has

}  // namespace vaktor
