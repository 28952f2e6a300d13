// A decoder of libavcodec for one stream, and the packet that goes into it: what the GStreamer element and the decoder
// of packets have in common.
#pragma once

#include <gst/gst.h>

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace vaktor {

/// All null when closed.
struct CodecOuvert {
  AVCodecContext* Contexte;
  AVPacket* Paquet;
};

/// For the stream with these caps, from its first packet on. False when libavcodec is not there or does not know it;
/// FermeCodec gives back what was taken up to there.
bool OuvreCodec(CodecOuvert& codec, const GstCaps* caps);
/// Nothing happens to one that is closed.
void FermeCodec(CodecOuvert& codec);
/// Copies a packet into memory as the decoder wants it. False without memory.
bool RemplitPaquet(AVPacket& paquet, GstBuffer* tampon);

}  // namespace vaktor
