// SPDX-License-Identifier: GPL-3.0-or-later
// GStreamer as this driver uses it: owners of its objects, its start, which decoders it may take, and its names for the
// formats of cameras.
#pragma once

#include <gst/gst.h>

#include <memory>

#include "platform/capture/choice/camera_format.h"

namespace vaktor {

struct RendGst {
  void operator()(GstElement* objet) const { gst_object_unref(objet); }
  void operator()(GstPad* objet) const { gst_object_unref(objet); }
  void operator()(GstBus* objet) const { gst_object_unref(objet); }
  void operator()(GstCaps* objet) const { gst_caps_unref(objet); }
  void operator()(GstSample* objet) const { gst_sample_unref(objet); }
  void operator()(GstMessage* objet) const { gst_message_unref(objet); }
};

template <typename T>
using PtrGst = std::unique_ptr<T, RendGst>;

/// Once in a process, before the first source is opened. Any thread; later calls cost nothing. False when GStreamer
/// cannot run here: only the test picture then works. Where plugins were installed or changed since the last start,
/// this is when they are looked through (seconds).
bool PrepareGStreamer();

/// Tells a decodebin: pictures only (no sound, no text), and no playlists; JPEG stays as it is; what our own decoder
/// knows (platform/libav) is decoded by it and by nobody else, since it alone keeps to the limits that are set for it;
/// software decoders only, each with a single thread of its own, since what hardware decodes lies in memory from which
/// a frame costs more to fetch. `reseau`: nothing but what network cameras send. Whoever can make a camera's address
/// answer would else choose among all that is installed here for reading films.
void ChoisitDecodeurs(GstElement* decodebin, bool reseau);

bool EstDeFabrique(GstElement* element, const char* nom);
bool EstVideo(const GstCaps* caps);  ///< raw video or JPEG
/// Answer to rtspsrc's "select-stream".
gboolean EstFluxVideo(GstElement* source, guint numero, const GstCaps* caps, gpointer rien);

/// What a camera source is asked for. Null for a coding that GStreamer has no name for; a format without a coding asks
/// for its size and rate only, an empty one for anything.
PtrGst<GstCaps> CapsDuFormat(const FormatCamera& format);

/// The coding of negotiated caps as a four-character code; empty when it has none.
QString CodageDesCaps(const GstCaps* caps);

}  // namespace vaktor
