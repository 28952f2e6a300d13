#include "platform/libav/packet_decoder.h"

#include <optional>

#include "platform/libav/libav_codec.h"
#include "platform/libav/libav_formats.h"
#include "platform/libav/libav_library.h"

namespace vaktor {

const char* const kCapsPaquets =
    "video/x-msmpeg, msmpegversion=(int){ 41, 42, 43 }; video/x-divx, divxversion=(int)3; video/x-vp8";

namespace {

bool EstEntiere(const AVFrame& trame) {
  return trame.decode_error_flags == 0 && (trame.flags & AV_FRAME_FLAG_CORRUPT) == 0;
}

}  // namespace

ImageLibav::~ImageLibav() {
  if (Trame_ != nullptr) Libav()->av_frame_free(&Trame_);
}

bool ImageLibav::EstVide() const { return Trame_ == nullptr || Trame_->buf[0] == nullptr; }

void ImageLibav::Lache() {
  if (!EstVide()) Libav()->av_frame_unref(Trame_);
}

struct DecodeurPaquets::Flux {
  ~Flux() { FermeCodec(Codec); }
  bool SuitFormat(const AVFrame& trame);
  bool MontreDans(const AVFrame& trame, GstVideoFrame& vue) const;

  CodecOuvert Codec{};
  bool Ouvert = false;
  GstVideoInfo Entree{};  // what the container says of the colours
  GstVideoInfo Sortie{};
  int Format = AV_PIX_FMT_NONE;  // that of Sortie, in libavcodec's words
};

// What the picture says of its colours counts, then what the container says, then what is usual for its size.
bool DecodeurPaquets::Flux::SuitFormat(const AVFrame& trame) {
  if (trame.format == Format && trame.width == Sortie.width && trame.height == Sortie.height) return true;
  const std::optional<GstVideoFormat> format = FormatGStreamer(trame.format);
  if (!format ||
      !gst_video_info_set_format(&Sortie, *format, static_cast<guint>(trame.width), static_cast<guint>(trame.height)))
    return false;
  GstVideoColorimetry& couleurs = Sortie.colorimetry;
  if (Entree.colorimetry.range != GST_VIDEO_COLOR_RANGE_UNKNOWN) couleurs.range = Entree.colorimetry.range;
  if (Entree.colorimetry.matrix != GST_VIDEO_COLOR_MATRIX_UNKNOWN) couleurs.matrix = Entree.colorimetry.matrix;
  AnnonceCouleurs(trame, couleurs);
  Format = trame.format;
  return true;
}

// Not for a picture that is stored bottom up.
bool DecodeurPaquets::Flux::MontreDans(const AVFrame& trame, GstVideoFrame& vue) const {
  vue = {};
  vue.info = Sortie;
  for (guint i = 0; i < GST_VIDEO_INFO_N_PLANES(&Sortie); ++i) {
    if (trame.linesize[i] <= 0) return false;
    vue.data[i] = trame.data[i];
    vue.info.stride[i] = trame.linesize[i];
  }
  return true;
}

DecodeurPaquets::DecodeurPaquets() = default;
DecodeurPaquets::~DecodeurPaquets() = default;

bool DecodeurPaquets::Ouvre(const GstCaps* caps) {
  Flux_ = std::make_unique<Flux>();
  gst_video_info_init(&Flux_->Entree);
  gst_video_info_from_caps(&Flux_->Entree, caps);
  Flux_->Ouvert = OuvreCodec(Flux_->Codec, caps);
  return Flux_->Ouvert;
}

void DecodeurPaquets::Oublie() {
  if (Flux_ && Flux_->Ouvert) Libav()->avcodec_flush_buffers(Flux_->Codec.Contexte);
}

void DecodeurPaquets::Envoie(GstBuffer* paquet) {
  if (!Flux_ || !Flux_->Ouvert || !RemplitPaquet(*Flux_->Codec.Paquet, paquet)) return;
  Libav()->avcodec_send_packet(Flux_->Codec.Contexte, Flux_->Codec.Paquet);
}

bool DecodeurPaquets::Prend(ImageLibav& image, GstVideoFrame& vue) {
  if (!Flux_ || !Flux_->Ouvert) return false;
  if (image.Trame_ == nullptr) image.Trame_ = Libav()->av_frame_alloc();
  if (image.Trame_ == nullptr) return false;
  while (Libav()->avcodec_receive_frame(Flux_->Codec.Contexte, image.Trame_) == 0) {
    const AVFrame& trame = *image.Trame_;
    if (EstEntiere(trame) && Flux_->SuitFormat(trame) && Flux_->MontreDans(trame, vue)) return true;
  }
  return false;
}

}  // namespace vaktor
