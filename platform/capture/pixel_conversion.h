// From what cameras and decoders give to the program's one picture format: once, straight into its memory.
#pragma once

#include <gst/video/video.h>

#include <QImage>

namespace vaktor {

/// Raw formats that are converted here; caps for the end of a pipeline. Any other raw format needs an element before.
extern const char* const kCapsBruts;
bool FormatConvertible(GstVideoFormat format);

/// Converts the whole frame into `image` (Format_RGB32, same size, nobody else holding it): bytes B, G, R, 0xff. The
/// colour matrix and the range are those the frame announces; where it announces nothing GStreamer has already put
/// the usual ones in (BT.601 for small pictures, BT.709 for large ones). Any thread, no allocation.
/// False for a format or a size that does not fit; the image's content is then undefined.
bool ConvertitImage(const GstVideoFrame& trame, QImage& image);

}  // namespace vaktor
