#include "platform/libav/libav_decoder.h"

#include <gst/video/gstvideodecoder.h>

#include <optional>

#include "platform/libav/libav_codec.h"
#include "platform/libav/libav_formats.h"
#include "platform/libav/libav_library.h"

namespace vaktor {
namespace {

// Pictures come out at most this many packets late; what is older was never shown and will not be. It is looked for
// once in so many pictures too.
constexpr guint32 kRetardMaximal = 32;

struct DecodeurLibav {
  GstVideoDecoder Base;
  CodecOuvert Codec;
  AVFrame* Trame;
  GstVideoCodecState* Entree;
  // What was announced behind the decoder; a width of 0: nothing yet.
  int Format, Largeur, Hauteur;
  guint32 Livrees;  // pictures since old entries were looked for
};

struct ClasseDecodeurLibav {
  GstVideoDecoderClass Base;
};

GstVideoDecoderClass* ClasseMere = nullptr;

DecodeurLibav* Soi(GstVideoDecoder* decodeur) { return reinterpret_cast<DecodeurLibav*>(decodeur); }

void Libere(DecodeurLibav* soi) {
  if (soi->Entree != nullptr) gst_video_codec_state_unref(soi->Entree);
  soi->Entree = nullptr;
  soi->Largeur = 0;
  FermeCodec(soi->Codec);
  if (soi->Trame != nullptr) Libav()->av_frame_free(&soi->Trame);
}

gboolean Arrete(GstVideoDecoder* decodeur) {
  Libere(Soi(decodeur));
  return TRUE;
}

gboolean FixeFormat(GstVideoDecoder* decodeur, GstVideoCodecState* etat) {
  DecodeurLibav* soi = Soi(decodeur);
  Libere(soi);
  if (!OuvreCodec(soi->Codec, etat->caps)) return FALSE;
  soi->Trame = Libav()->av_frame_alloc();
  if (soi->Trame == nullptr) return FALSE;
  soi->Entree = gst_video_codec_state_ref(etat);
  return TRUE;
}

// The format behind the decoder is told anew only when the pictures really change.
bool AnnonceSortie(DecodeurLibav* soi) {
  const AVFrame& trame = *soi->Trame;
  if (trame.format == soi->Format && trame.width == soi->Largeur && trame.height == soi->Hauteur) return true;
  const std::optional<GstVideoFormat> format = FormatGStreamer(trame.format);
  if (!format) return false;
  GstVideoCodecState* sortie = gst_video_decoder_set_output_state(&soi->Base, *format, static_cast<guint>(trame.width),
                                                                  static_cast<guint>(trame.height), soi->Entree);
  AnnonceCouleurs(trame, sortie->info.colorimetry);
  gst_video_codec_state_unref(sortie);
  soi->Format = trame.format;
  soi->Largeur = trame.width;
  soi->Hauteur = trame.height;
  return true;
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
  const auto numero = static_cast<guint32>(soi->Trame->pts);
  GstVideoCodecFrame* image = gst_video_decoder_get_frame(&soi->Base, static_cast<int>(numero));
  if (image == nullptr) return GST_FLOW_OK;
  if (AnnonceSortie(soi)) image->output_buffer = TamponDeTrame(*soi->Trame);
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
  while (suite == GST_FLOW_OK && Libav()->avcodec_receive_frame(soi->Codec.Contexte, soi->Trame) == 0) {
    suite = Livre(soi);
    Libav()->av_frame_unref(soi->Trame);
  }
  return suite;
}

GstFlowReturn Decode(GstVideoDecoder* decodeur, GstVideoCodecFrame* image) {
  DecodeurLibav* soi = Soi(decodeur);
  if (soi->Codec.Contexte == nullptr || !RemplitPaquet(*soi->Codec.Paquet, image->input_buffer)) {
    return gst_video_decoder_drop_frame(decodeur, image);
  }
  // The number instead of a time: it finds the entry of this picture again, however the order changes.
  soi->Codec.Paquet->pts = image->system_frame_number;
  int reponse = Libav()->avcodec_send_packet(soi->Codec.Contexte, soi->Codec.Paquet);
  GstFlowReturn suite = GST_FLOW_OK;
  if (reponse == AVERROR(EAGAIN)) {
    suite = LivreTout(soi);
    reponse = Libav()->avcodec_send_packet(soi->Codec.Contexte, soi->Codec.Paquet);
  }
  // A damaged packet gives no picture; the next good one goes on.
  if (reponse < 0) return gst_video_decoder_drop_frame(decodeur, image);
  gst_video_codec_frame_unref(image);
  return suite == GST_FLOW_OK ? LivreTout(soi) : suite;
}

gboolean Vide(GstVideoDecoder* decodeur) {
  if (Soi(decodeur)->Codec.Contexte != nullptr) Libav()->avcodec_flush_buffers(Soi(decodeur)->Codec.Contexte);
  return TRUE;
}

// What the decoder still holds back to put pictures into their order.
GstFlowReturn Acheve(GstVideoDecoder* decodeur) {
  DecodeurLibav* soi = Soi(decodeur);
  if (soi->Codec.Contexte == nullptr) return GST_FLOW_OK;
  Libav()->avcodec_send_packet(soi->Codec.Contexte, nullptr);
  const GstFlowReturn suite = LivreTout(soi);
  Libav()->avcodec_flush_buffers(soi->Codec.Contexte);
  return suite;
}

void Finalise(GObject* objet) {
  Libere(reinterpret_cast<DecodeurLibav*>(objet));
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
  GstElementClass* element = GST_ELEMENT_CLASS(classe);
  gst_element_class_add_pad_template(element, ModelePad("sink", GST_PAD_SINK, kCapsEncodes));
  gst_element_class_add_pad_template(element, ModelePad("src", GST_PAD_SRC, kCapsDecodes));
  gst_element_class_set_static_metadata(element, "Vaktor's video decoder", "Codec/Decoder/Video",
                                        "libavcodec without libavformat and libavfilter", "Vaktor");
}

void Initialise(GTypeInstance* instance, gpointer) {
  auto* decodeur = reinterpret_cast<GstVideoDecoder*>(instance);
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
