#include "platform/libav/libav_formats.h"

#include <array>
#include "platform/libav/libav_library.h"

namespace vaktor {

const char* const kCapsEncodes =
    "video/x-h264, alignment=(string)au, stream-format=(string){ avc, byte-stream }; "
    "video/x-h265, alignment=(string)au, stream-format=(string){ hvc1, hev1, byte-stream }; "
    "video/mpeg, mpegversion=(int){ 1, 2 }, systemstream=(boolean)false, parsed=(boolean)true; "
    "video/mpeg, mpegversion=(int)4, systemstream=(boolean)false; "
    "video/x-msmpeg, msmpegversion=(int){ 41, 42, 43 }; "
    "video/x-divx, divxversion=(int)[ 3, 5 ]; video/x-xvid; video/x-vp8; video/x-vp9";

const char* const kCapsDecodes = "video/x-raw, format=(string){ I420, Y42B, Y444, GRAY8, NV12, I420_10LE }";

namespace {

struct Codec {
  const char* Nom;
  const char* Champ;  // the whole number that tells the versions apart; null where there is one only
  int Version;
  AVCodecID Id;
};

constexpr std::array kCodecs = {
    Codec{"video/x-h264", nullptr, 0, AV_CODEC_ID_H264},
    Codec{"video/x-h265", nullptr, 0, AV_CODEC_ID_HEVC},
    Codec{"video/mpeg", "mpegversion", 1, AV_CODEC_ID_MPEG1VIDEO},
    Codec{"video/mpeg", "mpegversion", 2, AV_CODEC_ID_MPEG2VIDEO},
    Codec{"video/mpeg", "mpegversion", 4, AV_CODEC_ID_MPEG4},
    Codec{"video/x-msmpeg", "msmpegversion", 41, AV_CODEC_ID_MSMPEG4V1},
    Codec{"video/x-msmpeg", "msmpegversion", 42, AV_CODEC_ID_MSMPEG4V2},
    Codec{"video/x-msmpeg", "msmpegversion", 43, AV_CODEC_ID_MSMPEG4V3},
    // The first DivX was MS MPEG-4 under another name.
    Codec{"video/x-divx", "divxversion", 3, AV_CODEC_ID_MSMPEG4V3},
    Codec{"video/x-divx", "divxversion", 4, AV_CODEC_ID_MPEG4},
    Codec{"video/x-divx", "divxversion", 5, AV_CODEC_ID_MPEG4},
    Codec{"video/x-xvid", nullptr, 0, AV_CODEC_ID_MPEG4},
    Codec{"video/x-vp8", nullptr, 0, AV_CODEC_ID_VP8},
    Codec{"video/x-vp9", nullptr, 0, AV_CODEC_ID_VP9},
};

GstMemory* MemoireDePlan(const AVFrame& trame, const uint8_t* donnees, gsize taille) {
  AVFrame* garde = Libav()->av_frame_clone(&trame);
  if (garde == nullptr) return nullptr;
  return gst_memory_new_wrapped(GST_MEMORY_FLAG_READONLY, const_cast<uint8_t*>(donnees), taille, 0, taille, garde,
                                [](gpointer image) {
                                  auto* trameGardee = static_cast<AVFrame*>(image);
                                  Libav()->av_frame_free(&trameGardee);
                                });
}

}  // namespace

AVCodecID CodecDesCaps(const GstCaps* caps) {
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  for (const Codec& codec : kCodecs) {
    if (!gst_structure_has_name(structure, codec.Nom)) continue;
    int version = 0;
    if (codec.Champ != nullptr && !gst_structure_get_int(structure, codec.Champ, &version)) continue;
    if (version == codec.Version) return codec.Id;
  }
  return AV_CODEC_ID_NONE;
}

std::optional<GstVideoFormat> FormatGStreamer(int formatAv) {
  switch (formatAv) {
    case AV_PIX_FMT_YUV420P:
    case AV_PIX_FMT_YUVJ420P:
      return GST_VIDEO_FORMAT_I420;
    case AV_PIX_FMT_YUV422P:
    case AV_PIX_FMT_YUVJ422P:
      return GST_VIDEO_FORMAT_Y42B;
    case AV_PIX_FMT_YUV444P:
    case AV_PIX_FMT_YUVJ444P:
      return GST_VIDEO_FORMAT_Y444;
    case AV_PIX_FMT_GRAY8:
      return GST_VIDEO_FORMAT_GRAY8;
    case AV_PIX_FMT_NV12:
      return GST_VIDEO_FORMAT_NV12;
    case AV_PIX_FMT_YUV420P10LE:
      return GST_VIDEO_FORMAT_I420_10LE;
    default:
      return std::nullopt;
  }
}

void AnnonceCouleurs(const AVFrame& trame, GstVideoColorimetry& couleurs) {
  const bool pleine = trame.format == AV_PIX_FMT_YUVJ420P || trame.format == AV_PIX_FMT_YUVJ422P ||
                      trame.format == AV_PIX_FMT_YUVJ444P || trame.color_range == AVCOL_RANGE_JPEG;
  if (pleine) {
    couleurs.range = GST_VIDEO_COLOR_RANGE_0_255;
  } else if (trame.color_range == AVCOL_RANGE_MPEG) {
    couleurs.range = GST_VIDEO_COLOR_RANGE_16_235;
  }
  // ISO/IEC 23091-4, "MatrixCoefficients": both libraries speak of the same table.
  if (trame.colorspace == AVCOL_SPC_UNSPECIFIED || trame.colorspace == AVCOL_SPC_RGB) return;
  const GstVideoColorMatrix matrice = gst_video_color_matrix_from_iso(static_cast<guint>(trame.colorspace));
  if (matrice != GST_VIDEO_COLOR_MATRIX_UNKNOWN) couleurs.matrix = matrice;
}

GstBuffer* TamponDeTrame(const AVFrame& trame) {
  const std::optional<GstVideoFormat> format = FormatGStreamer(trame.format);
  if (!format) return nullptr;
  const GstVideoFormatInfo* info = gst_video_format_get_info(*format);
  GstBuffer* tampon = gst_buffer_new();
  std::array<gsize, GST_VIDEO_MAX_PLANES> debuts{};
  std::array<gint, GST_VIDEO_MAX_PLANES> pas{};
  gsize fin = 0;
  for (guint plan = 0; plan < GST_VIDEO_FORMAT_INFO_N_PLANES(info); ++plan) {
    const int largeurLigne = trame.linesize[plan];
    // Planes and components come in the same order in all formats that are given out.
    const auto lignes = GST_VIDEO_FORMAT_INFO_SCALE_HEIGHT(info, plan, trame.height);
    const gsize taille = largeurLigne > 0 ? static_cast<gsize>(largeurLigne) * static_cast<gsize>(lignes) : 0;
    GstMemory* memoire = taille > 0 ? MemoireDePlan(trame, trame.data[plan], taille) : nullptr;
    if (memoire == nullptr) {
      gst_buffer_unref(tampon);
      return nullptr;
    }
    gst_buffer_append_memory(tampon, memoire);
    debuts.at(plan) = fin;
    pas.at(plan) = largeurLigne;
    fin += taille;
  }
  gst_buffer_add_video_meta_full(tampon, GST_VIDEO_FRAME_FLAG_NONE, *format, static_cast<guint>(trame.width),
                                 static_cast<guint>(trame.height), GST_VIDEO_FORMAT_INFO_N_PLANES(info), debuts.data(),
                                 pas.data());
  if (trame.decode_error_flags != 0 || (trame.flags & AV_FRAME_FLAG_CORRUPT) != 0) {
    GST_BUFFER_FLAG_SET(tampon, GST_BUFFER_FLAG_CORRUPTED);
  }
  return tampon;
}

}  // namespace vaktor
