// SPDX-License-Identifier: GPL-3.0-or-later
// Decoder of video files and network cameras: libavcodec behind an element of our own.
#pragma once

namespace vaktor {

/// Makes the element "vaktorlibav" known to this process, ahead of any other decoder of the formats it knows: H.264,
/// H.265, MPEG-1, -2 and -4 with their MS, DivX and Xvid kin, VP8 and VP9. GStreamer's own libavcodec decoders do the
/// same work, but their plugin loads libavformat and libavfilter as well, and with these a hundred libraries that no
/// camera needs: about 30 MB of memory, half of what the whole program takes.
///
/// The element decodes on the thread that feeds it and gives out the decoder's own picture memory, read only and
/// uncopied, with a GstVideoMeta that tells the row lengths; whatever is linked behind it has to go by that. Pictures
/// that the decoder could not fill are marked GST_BUFFER_FLAG_CORRUPTED.
///
/// After gst_init, once in a process. False when GStreamer refuses it; everything then works with its own decoders.
bool EnregistreDecodeurLibav();

}  // namespace vaktor
