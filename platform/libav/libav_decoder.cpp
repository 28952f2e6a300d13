// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/libav/libav_decoder.h"

#include <gst/video/gstvideodecoder.h>

#include <new>

#include "platform/libav/libav_conversion.h"
#include "platform/libav/libav_formats.h"
#include "platform/libav/libav_library.h"
#include "platform/libav/pixel_refusal.h"

namespace vaktor {
namespace {

// Pictures come out at most this many packets late; what is older was never shown and will not be. It is looked for
// once in so many pictures too.
constexpr guint32 kRetardMaximal = 32;
constexpr gint64 kSansLimite = G_MAXINT;  // libavcodec's own

struct DecodeurLibav {
  GstVideoDecoder Base;
  // Null while no stream is open.
  AVCodecContext* Contexte;
  AVPacket* Paquet;
  AVFrame* Trame;
  GstVideoCodecState* Entree;
  ConversionLibav Conversion;  // GObject's memory knows no constructors: made and ended by hand
  gint64 PixelsMax;
  // What was announced behind the decoder; a width of 0: nothing yet.
  int Format, Largeur, Hauteur;
  guint32 Livrees;  // pictures since old entries were looked for
};

struct ClasseDecodeurLibav {
  GstVideoDecoderClass Base;
};

GstVideoDecoderClass* ClasseMere = nullptr;

DecodeurLibav* Soi(GstVideoDecoder* decodeur) { return reinterpret_cast<DecodeurLibav*>(decodeur); }

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

// One thread: more would each keep frames of their own, and detection needs one frame after the other anyway. What was
// taken before it failed is given back by Libere.
bool OuvreCodec(DecodeurLibav* soi, const GstCaps* caps) {
  if (Libav() == nullptr) return false;
  const AVCodec* sorte = Libav()->avcodec_find_decoder(CodecDesCaps(caps));
  if (sorte == nullptr) return false;
  soi->Contexte = Libav()->avcodec_alloc_context3(sorte);
  soi->Paquet = Libav()->av_packet_alloc();
  soi->Trame = Libav()->av_frame_alloc();
  if (soi->Contexte == nullptr || soi->Paquet == nullptr || soi->Trame == nullptr) return false;
  soi->Contexte->thread_count = 1;
  soi->Contexte->max_pixels = soi->PixelsMax;
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  gst_structure_get_int(structure, "width", &soi->Contexte->width);
  gst_structure_get_int(structure, "height", &soi->Contexte->height);
  gst_structure_get_int(structure, "depth", &soi->Contexte->bits_per_coded_sample);
  return CopieEntete(*soi->Contexte, structure) && Libav()->avcodec_open2(soi->Contexte, sorte, nullptr) >= 0;
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

void Libere(DecodeurLibav* soi) {
  if (soi->Entree != nullptr) gst_video_codec_state_unref(soi->Entree);
  soi->Entree = nullptr;
  soi->Largeur = 0;
  if (soi->Contexte != nullptr) Libav()->avcodec_free_context(&soi->Contexte);
  if (soi->Paquet != nullptr) Libav()->av_packet_free(&soi->Paquet);
  if (soi->Trame != nullptr) Libav()->av_frame_free(&soi->Trame);
}

gboolean Arrete(GstVideoDecoder* decodeur) {
  Libere(Soi(decodeur));
  return TRUE;
}

// Whoever uses the element is told at once: dropping picture after picture would look like a camera that gives none.
GstFlowReturn RefuseFormat(DecodeurLibav* soi) {
  gst_element_message_full(GST_ELEMENT(soi), GST_MESSAGE_ERROR, GST_STREAM_ERROR, GST_STREAM_ERROR_FORMAT,
                           g_strdup("a pixel format that nothing here reads"), nullptr, __FILE__, __func__, __LINE__);
  return GST_FLOW_ERROR;
}

GstFlowReturn RefuseTaille(DecodeurLibav* soi) {
  RefuseTropDePixels(GST_ELEMENT(soi));
  return GST_FLOW_ERROR;
}

// What is told beforehand. The codec keeps to the limit by itself, whatever its stream says later.
bool EstTropGrande(const DecodeurLibav* soi, const GstVideoInfo& annonce) {
  return gint64{GST_VIDEO_INFO_WIDTH(&annonce)} * GST_VIDEO_INFO_HEIGHT(&annonce) > soi->PixelsMax;
}

gboolean FixeFormat(GstVideoDecoder* decodeur, GstVideoCodecState* etat) {
  DecodeurLibav* soi = Soi(decodeur);
  Libere(soi);
  if (EstTropGrande(soi, etat->info)) {
    RefuseTaille(soi);
    return FALSE;
  }
  if (!OuvreCodec(soi, etat->caps)) return FALSE;
  soi->Entree = gst_video_codec_state_ref(etat);
  return TRUE;
}

// Where the container does not say how wide a pixel is, the stream itself may.
void AnnonceForme(const AVFrame& trame, const GstCaps* entree, GstVideoInfo& info) {
  const AVRational forme = trame.sample_aspect_ratio;
  if (forme.num <= 0 || forme.den <= 0) return;
  if (gst_structure_has_field(gst_caps_get_structure(entree, 0), "pixel-aspect-ratio") != FALSE) return;
  info.par_n = forme.num;
  info.par_d = forme.den;
}

// The format behind the decoder is told anew only when the pictures really change.
void AnnonceSortie(DecodeurLibav* soi) {
  const AVFrame& trame = *soi->Trame;
  if (trame.format == soi->Format && trame.width == soi->Largeur && trame.height == soi->Hauteur) return;
  const GstVideoFormat format = *FormatGStreamer(trame.format);
  GstVideoCodecState* sortie = gst_video_decoder_set_output_state(&soi->Base, format, static_cast<guint>(trame.width),
                                                                  static_cast<guint>(trame.height), soi->Entree);
  AnnonceCouleurs(trame, sortie->info);
  AnnonceForme(trame, soi->Entree->caps, sortie->info);
  gst_video_codec_state_unref(sortie);
  soi->Format = trame.format;
  soi->Largeur = trame.width;
  soi->Hauteur = trame.height;
}

// A packet can hold a picture that is never shown; its entry would wait for ever.
void OublieVieilles(GstVideoDecoder* decodeur, guint32 numero) {
  GList* attente = gst_video_decoder_get_frames(decodeur);
  for (GList* element = attente; element != nullptr; element = element->next) {
    auto* image = static_cast<GstVideoCodecFrame*>(element->data);
    if (numero - image->system_frame_number > kRetardMaximal && image->system_frame_number < numero) {
      gst_video_decoder_release_frame(decodeur, gst_video_codec_frame_ref(image));
    }
  }
  g_list_free_full(attente,
                   [](gpointer image) { gst_video_codec_frame_unref(static_cast<GstVideoCodecFrame*>(image)); });
}

GstFlowReturn Livre(DecodeurLibav* soi) {
  if (!soi->Conversion.MetEnForme(*soi->Trame)) return RefuseFormat(soi);
  const auto numero = static_cast<guint32>(soi->Trame->pts);
  GstVideoCodecFrame* image = gst_video_decoder_get_frame(&soi->Base, static_cast<int>(numero));
  if (image == nullptr) return GST_FLOW_OK;
  AnnonceSortie(soi);
  image->output_buffer = TamponDeTrame(*soi->Trame);
  if (image->output_buffer == nullptr) return gst_video_decoder_drop_frame(&soi->Base, image);
  const GstFlowReturn suite = gst_video_decoder_finish_frame(&soi->Base, image);
  if (++soi->Livrees >= kRetardMaximal) {
    soi->Livrees = 0;
    OublieVieilles(&soi->Base, numero);
  }
  return suite;
}

GstFlowReturn LivreTout(DecodeurLibav* soi) {
  GstFlowReturn suite = GST_FLOW_OK;
  while (suite == GST_FLOW_OK && Libav()->avcodec_receive_frame(soi->Contexte, soi->Trame) == 0) {
    suite = Livre(soi);
    Libav()->av_frame_unref(soi->Trame);
  }
  return suite;
}

// A codec that has read a size which it may not have says so in no other way: it forgets its size, or keeps it and has
// no picture. What comes damaged on the way, behind pictures that were good, is let pass.
bool ARefuseSaTaille(const DecodeurLibav* soi, int largeurAvant) {
  if (soi->Largeur > 0) return false;
  const gint64 pixels = gint64{soi->Contexte->width} * soi->Contexte->height;
  return pixels > soi->PixelsMax || (largeurAvant > 0 && soi->Contexte->width == 0);
}

GstFlowReturn Decode(GstVideoDecoder* decodeur, GstVideoCodecFrame* image) {
  DecodeurLibav* soi = Soi(decodeur);
  if (soi->Contexte == nullptr || !RemplitPaquet(*soi->Paquet, image->input_buffer)) {
    return gst_video_decoder_drop_frame(decodeur, image);
  }
  // The number instead of a time: it finds the entry of this picture again, however the order changes.
  soi->Paquet->pts = image->system_frame_number;
  const int largeurAvant = soi->Contexte->width;
  int reponse = Libav()->avcodec_send_packet(soi->Contexte, soi->Paquet);
  GstFlowReturn suite = GST_FLOW_OK;
  if (reponse == AVERROR(EAGAIN)) {
    suite = LivreTout(soi);
    reponse = Libav()->avcodec_send_packet(soi->Contexte, soi->Paquet);
  }
  if (reponse < 0) {
    // A damaged packet gives no picture; the next good one goes on.
    const GstFlowReturn laissee = gst_video_decoder_drop_frame(decodeur, image);
    return ARefuseSaTaille(soi, largeurAvant) ? RefuseTaille(soi) : laissee;
  }
  gst_video_codec_frame_unref(image);
  return suite == GST_FLOW_OK ? LivreTout(soi) : suite;
}

gboolean Vide(GstVideoDecoder* decodeur) {
  if (Soi(decodeur)->Contexte != nullptr) Libav()->avcodec_flush_buffers(Soi(decodeur)->Contexte);
  return TRUE;
}

// What the decoder still holds back to put pictures into their order.
GstFlowReturn Acheve(GstVideoDecoder* decodeur) {
  DecodeurLibav* soi = Soi(decodeur);
  if (soi->Contexte == nullptr) return GST_FLOW_OK;
  Libav()->avcodec_send_packet(soi->Contexte, nullptr);
  const GstFlowReturn suite = LivreTout(soi);
  Libav()->avcodec_flush_buffers(soi->Contexte);
  return suite;
}

enum { kProprieteAucune, kProprietePixelsMax };

void FixePropriete(GObject* objet, guint, const GValue* valeur, GParamSpec*) {
  reinterpret_cast<DecodeurLibav*>(objet)->PixelsMax = g_value_get_int64(valeur);
}

void Finalise(GObject* objet) {
  auto* soi = reinterpret_cast<DecodeurLibav*>(objet);
  Libere(soi);
  soi->Conversion.~ConversionLibav();
  G_OBJECT_CLASS(ClasseMere)->finalize(objet);
}

GstPadTemplate* ModelePad(const char* nom, GstPadDirection sens, const char* description) {
  GstCaps* caps = gst_caps_from_string(description);
  GstPadTemplate* modele = gst_pad_template_new(nom, sens, GST_PAD_ALWAYS, caps);
  gst_caps_unref(caps);
  return modele;
}

void InitialiseClasse(gpointer classe, gpointer) {
  ClasseMere = static_cast<GstVideoDecoderClass*>(g_type_class_peek_parent(classe));
  auto* decodeur = static_cast<GstVideoDecoderClass*>(classe);
  decodeur->set_format = FixeFormat;
  decodeur->handle_frame = Decode;
  decodeur->flush = Vide;
  decodeur->drain = Acheve;
  decodeur->finish = Acheve;
  decodeur->stop = Arrete;
  G_OBJECT_CLASS(classe)->finalize = Finalise;
  G_OBJECT_CLASS(classe)->set_property = FixePropriete;
  g_object_class_install_property(
      G_OBJECT_CLASS(classe), kProprietePixelsMax,
      g_param_spec_int64("max-pixels", nullptr, nullptr, 1, kSansLimite, kSansLimite, G_PARAM_WRITABLE));
  GstElementClass* element = GST_ELEMENT_CLASS(classe);
  gst_element_class_add_pad_template(element, ModelePad("sink", GST_PAD_SINK, kCapsEncodes));
  gst_element_class_add_pad_template(element, ModelePad("src", GST_PAD_SRC, kCapsDecodes));
  gst_element_class_set_static_metadata(element, "Vaktor's video decoder", "Codec/Decoder/Video",
                                        "libavcodec without libavformat and libavfilter", "Vaktor");
}

void Initialise(GTypeInstance* instance, gpointer) {
  auto* decodeur = reinterpret_cast<GstVideoDecoder*>(instance);
  new (&Soi(decodeur)->Conversion) ConversionLibav;
  Soi(decodeur)->PixelsMax = kSansLimite;
  gst_video_decoder_set_packetized(decodeur, TRUE);
  gst_video_decoder_set_needs_format(decodeur, TRUE);
  gst_video_decoder_set_use_default_pad_acceptcaps(decodeur, TRUE);
}

}  // namespace

bool EnregistreDecodeurLibav() {
  static const GType type =
      g_type_register_static_simple(GST_TYPE_VIDEO_DECODER, "VaktorDecodeurLibav", sizeof(ClasseDecodeurLibav),
                                    InitialiseClasse, sizeof(DecodeurLibav), Initialise, GTypeFlags(0));
  return gst_element_register(nullptr, "vaktorlibav", GST_RANK_PRIMARY + 64, type) != FALSE;
}

}  // namespace vaktor
