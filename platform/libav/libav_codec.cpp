#include "platform/libav/libav_codec.h"

#include "platform/libav/libav_formats.h"
#include "platform/libav/libav_library.h"

namespace vaktor {
namespace {

// The parameter sets that a container keeps apart from the pictures.
bool CopieEntete(AVCodecContext& contexte, const GstStructure* structure) {
  const GValue* valeur = gst_structure_get_value(structure, "codec_data");
  GstBuffer* entete = valeur == nullptr ? nullptr : gst_value_get_buffer(valeur);
  if (entete == nullptr) return true;
  const gsize taille = gst_buffer_get_size(entete);
  contexte.extradata = static_cast<uint8_t*>(Libav()->av_mallocz(taille + AV_INPUT_BUFFER_PADDING_SIZE));
  if (contexte.extradata == nullptr) return false;
  contexte.extradata_size = static_cast<int>(gst_buffer_extract(entete, 0, contexte.extradata, taille));
  return true;
}

}  // namespace

// One thread: more would each keep frames of their own, and detection needs one frame after the other anyway.
bool OuvreCodec(CodecOuvert& codec, const GstCaps* caps) {
  if (Libav() == nullptr) return false;
  const AVCodec* sorte = Libav()->avcodec_find_decoder(CodecDesCaps(caps));
  if (sorte == nullptr) return false;
  codec.Contexte = Libav()->avcodec_alloc_context3(sorte);
  codec.Paquet = Libav()->av_packet_alloc();
  if (codec.Contexte == nullptr || codec.Paquet == nullptr) return false;
  codec.Contexte->thread_count = 1;
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  gst_structure_get_int(structure, "width", &codec.Contexte->width);
  gst_structure_get_int(structure, "height", &codec.Contexte->height);
  return CopieEntete(*codec.Contexte, structure) && Libav()->avcodec_open2(codec.Contexte, sorte, nullptr) >= 0;
}

void FermeCodec(CodecOuvert& codec) {
  if (codec.Contexte != nullptr) Libav()->avcodec_free_context(&codec.Contexte);
  if (codec.Paquet != nullptr) Libav()->av_packet_free(&codec.Paquet);
}

// The decoder wants the bytes behind a packet to be zero and readable; a frame is a few kilobytes here.
bool RemplitPaquet(AVPacket& paquet, GstBuffer* tampon) {
  Libav()->av_packet_unref(&paquet);
  const gsize taille = gst_buffer_get_size(tampon);
  if (taille > G_MAXINT / 2 || Libav()->av_new_packet(&paquet, static_cast<int>(taille)) < 0) return false;
  gst_buffer_extract(tampon, 0, paquet.data, taille);
  if (!GST_BUFFER_FLAG_IS_SET(tampon, GST_BUFFER_FLAG_DELTA_UNIT)) paquet.flags |= AV_PKT_FLAG_KEY;
  return true;
}

}  // namespace vaktor
