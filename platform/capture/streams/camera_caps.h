// The names that V4L2 and GStreamer give to the same formats.
#pragma once

#include "platform/capture/choice/camera_format.h"
#include "platform/capture/streams/gst_objects.h"

namespace vaktor {

/// What a camera source is asked for. Null for a coding that GStreamer has no name for; a format without a coding asks
/// for its size and rate only, an empty one for anything.
PtrGst<GstCaps> CapsDuFormat(const FormatCamera& format);

/// The coding of negotiated caps as a four-character code; empty when it has none.
QString CodageDesCaps(const GstCaps* caps);

}  // namespace vaktor
