// SPDX-License-Identifier: GPL-3.0-or-later
// Decoder of video files and network cameras: libavcodec behind an element of our own.
#pragma once

namespace vaktor {

/// Makes the element "vaktorlibav" known to this process, ahead of any other decoder of the formats it knows: what
/// cameras send (H.264, H.265, MPEG-4, VP8, VP9, AV1) and what films are made of (libav_formats.cpp has the list).
/// GStreamer's own libavcodec decoders do the same work, but their plugin loads libavformat and libavfilter as well,
/// and with these a hundred libraries that no camera needs: about 30 MB of memory, half of what the whole program
/// takes. And a film with a pixel format that this plugin has no name for, grey in ten bits for one, makes it fall.
///
/// The element decodes on the thread that feeds it and gives out the decoder's own picture memory, read only and
/// uncopied, with a GstVideoMeta that tells the row lengths; whatever is linked behind it has to go by that. Pictures
/// of more than eight bits, and of any layout that has no name here, come out in eight bits of the nearest one
/// (libav_conversion.h). Pictures that the decoder could not fill are marked GST_BUFFER_FLAG_CORRUPTED.
///
/// Its property "max-pixels" (a 64-bit whole number) bounds what a stream may ask for before memory is taken: a larger
/// picture is an error (pixel_refusal.h) where it is announced, or found in a stream that has given none yet; of one
/// that has, it is left out.
///
/// After gst_init, once in a process. False when GStreamer refuses it; everything then works with its own decoders.
bool EnregistreDecodeurLibav();

}  // namespace vaktor
