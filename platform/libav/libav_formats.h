// SPDX-License-Identifier: GPL-3.0-or-later
// The same formats and pictures in the words of GStreamer and of libavcodec.
#pragma once

#include <gst/video/video.h>

#include <optional>

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace vaktor {

extern const char* const kCapsEncodes;  ///< streams that are decoded, each a whole picture to a buffer
extern const char* const kCapsDecodes;  ///< pictures that come out

AVCodecID CodecDesCaps(const GstCaps* caps);                  ///< AV_CODEC_ID_NONE for any other stream
std::optional<GstVideoFormat> FormatGStreamer(int formatAv);  ///< of an AVPixelFormat; nothing for any other

/// What the picture itself says of its range and matrix replaces what was assumed; what it does not say stays.
void AnnonceCouleurs(const AVFrame& trame, GstVideoInfo& info);

/// A buffer over the picture's own memory, which it takes over: `trame` is empty afterwards. Nothing is copied. Null
/// without memory, or for a picture stored bottom up.
GstBuffer* TamponDeTrame(AVFrame& trame);

}  // namespace vaktor
