// Which decoders a stream may use, and which of its parts are wanted at all.
#pragma once

#include <gst/gst.h>

namespace vaktor {

/// Tells a decodebin: pictures only (no sound, no text); JPEG stays as it is; software decoders only, each with a
/// single thread of its own, since what hardware decodes lies in memory from which a frame costs more to fetch.
void ChoisitDecodeurs(GstElement* decodebin);

bool EstDeFabrique(GstElement* element, const char* nom);
bool EstVideo(const GstCaps* caps);  ///< raw video or JPEG
bool EstFilm(const GstCaps* caps);   ///< pictures of any coding
/// Whether such a stream needs no decoder before the sink: the sink decodes it (packet_decoder.h).
bool EstDecodableDansLePuits(const GstCaps* caps);
/// Whether our own decoder, as an element, takes H.264 as a demultiplexer gives it under these caps: each buffer a
/// whole picture, and pictures of 8 bits with halved chroma.
bool EstDecodableDirect(const GstCaps* caps);
/// Whether our own decoder takes such a stream behind a parser of the plugin "videoparsersbad".
bool EstDecodableAvecAnalyseur(const GstCaps* caps);
/// Answer to rtspsrc's "select-stream".
gboolean EstFluxVideo(GstElement* source, guint numero, const GstCaps* caps, gpointer rien);

}  // namespace vaktor
