// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/libav/libav_formats.h"

#include <array>
#include <new>

#include "platform/libav/libav_library.h"

namespace vaktor {

const char* const kCapsEncodes =
    "video/x-h264, alignment=(string)au, stream-format=(string){ avc, byte-stream }; "
    "video/x-h265, alignment=(string)au, stream-format=(string){ hvc1, hev1, byte-stream }; "
    "video/mpeg, mpegversion=(int){ 1, 2 }, systemstream=(boolean)false, parsed=(boolean)true; "
    "video/mpeg, mpegversion=(int)4, systemstream=(boolean)false; "
    "video/x-msmpeg, msmpegversion=(int){ 41, 42, 43 }; "
    "video/x-divx, divxversion=(int)[ 3, 5 ]; video/x-xvid; video/x-vp8; video/x-vp9; "
    "video/x-av1, stream-format=(string)obu-stream, alignment=(string)tu; "
    "video/x-wmv, wmvversion=(int){ 1, 2 }; "
    "video/x-wmv, wmvversion=(int)3, format=(string){ WMV3, WVC1, WMVA }; "
    "video/x-flash-video, flvversion=(int)1; video/x-flash-screen; video/x-h263, variant=(string)itu; "
    "video/x-ffv, ffvversion=(int)1; video/x-huffyuv; video/x-dv, systemstream=(boolean)false; "
    "video/x-prores; video/x-dnxhd; video/x-cineform; video/x-svq, svqversion=(int){ 1, 3 }";

const char* const kCapsDecodes =
    "video/x-raw, format=(string){ I420, Y42B, Y444, GRAY8, NV12, BGRx, BGRA, RGB, BGR, YUY2, UYVY }";

namespace {

struct Codec {
  const char* Nom;
  const char* Champ;  // the whole number that tells the versions apart; null where there is one only
  int Version;
  AVCodecID Id;
  const char* Format = nullptr;  // the word that tells them apart further; null where there is none
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
    Codec{"video/x-av1", nullptr, 0, AV_CODEC_ID_AV1},
    Codec{"video/x-wmv", "wmvversion", 1, AV_CODEC_ID_WMV1},
    Codec{"video/x-wmv", "wmvversion", 2, AV_CODEC_ID_WMV2},
    Codec{"video/x-wmv", "wmvversion", 3, AV_CODEC_ID_WMV3, "WMV3"},
    Codec{"video/x-wmv", "wmvversion", 3, AV_CODEC_ID_VC1, "WVC1"},
    Codec{"video/x-wmv", "wmvversion", 3, AV_CODEC_ID_VC1, "WMVA"},
    Codec{"video/x-flash-video", "flvversion", 1, AV_CODEC_ID_FLV1},
    Codec{"video/x-flash-screen", nullptr, 0, AV_CODEC_ID_FLASHSV},
    Codec{"video/x-h263", nullptr, 0, AV_CODEC_ID_H263},
    Codec{"video/x-ffv", "ffvversion", 1, AV_CODEC_ID_FFV1},
    Codec{"video/x-huffyuv", nullptr, 0, AV_CODEC_ID_HUFFYUV},
    Codec{"video/x-dv", nullptr, 0, AV_CODEC_ID_DVVIDEO},
    Codec{"video/x-prores", nullptr, 0, AV_CODEC_ID_PRORES},
    Codec{"video/x-dnxhd", nullptr, 0, AV_CODEC_ID_DNXHD},
    Codec{"video/x-cineform", nullptr, 0, AV_CODEC_ID_CFHD},
    Codec{"video/x-svq", "svqversion", 1, AV_CODEC_ID_SVQ1},
    Codec{"video/x-svq", "svqversion", 3, AV_CODEC_ID_SVQ3},
};

struct NomsFormat {
  AVPixelFormat Av;
  GstVideoFormat GStreamer;
};

// Eight bits and no more: what follows works on such pictures, and libswscale makes them of all others.
constexpr std::array kFormats = {
    NomsFormat{AV_PIX_FMT_YUV420P, GST_VIDEO_FORMAT_I420}, NomsFormat{AV_PIX_FMT_YUVJ420P, GST_VIDEO_FORMAT_I420},
    NomsFormat{AV_PIX_FMT_YUV422P, GST_VIDEO_FORMAT_Y42B}, NomsFormat{AV_PIX_FMT_YUVJ422P, GST_VIDEO_FORMAT_Y42B},
    NomsFormat{AV_PIX_FMT_YUV444P, GST_VIDEO_FORMAT_Y444}, NomsFormat{AV_PIX_FMT_YUVJ444P, GST_VIDEO_FORMAT_Y444},
    NomsFormat{AV_PIX_FMT_GRAY8, GST_VIDEO_FORMAT_GRAY8},  NomsFormat{AV_PIX_FMT_NV12, GST_VIDEO_FORMAT_NV12},
    NomsFormat{AV_PIX_FMT_BGR0, GST_VIDEO_FORMAT_BGRx},    NomsFormat{AV_PIX_FMT_BGRA, GST_VIDEO_FORMAT_BGRA},
    NomsFormat{AV_PIX_FMT_RGB24, GST_VIDEO_FORMAT_RGB},    NomsFormat{AV_PIX_FMT_BGR24, GST_VIDEO_FORMAT_BGR},
    NomsFormat{AV_PIX_FMT_YUYV422, GST_VIDEO_FORMAT_YUY2}, NomsFormat{AV_PIX_FMT_UYVY422, GST_VIDEO_FORMAT_UYVY},
};

/// One frame for all the memories that show a part of it. Each may be let go on its own, on any thread.
class TrameGardee {
 public:
  static TrameGardee* De(AVFrame& trame) {
    AVFrame* image = Libav()->av_frame_alloc();
    if (image == nullptr) return nullptr;
    Libav()->av_frame_move_ref(image, &trame);
    // No exception: on both sides of here stands C.
    auto* garde = new (std::nothrow) TrameGardee(image);
    if (garde == nullptr) Libav()->av_frame_free(&image);
    return garde;
  }
  const AVFrame& Image() const { return *Image_; }
  void Retient() { g_atomic_int_inc(&Detenteurs_); }
  void Rend() {
    if (g_atomic_int_dec_and_test(&Detenteurs_) != FALSE) delete this;
  }

  TrameGardee(const TrameGardee&) = delete;
  TrameGardee& operator=(const TrameGardee&) = delete;

 private:
  explicit TrameGardee(AVFrame* image) : Image_(image) {}
  ~TrameGardee() { Libav()->av_frame_free(&Image_); }

  AVFrame* Image_;
  gint Detenteurs_ = 1;
};

GstMemory* MemoireDePlan(TrameGardee* garde, const uint8_t* donnees, gsize taille) {
  garde->Retient();
  return gst_memory_new_wrapped(GST_MEMORY_FLAG_READONLY, const_cast<uint8_t*>(donnees), taille, 0, taille, garde,
                                [](gpointer image) { static_cast<TrameGardee*>(image)->Rend(); });
}

}  // namespace

AVCodecID CodecDesCaps(const GstCaps* caps) {
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  const char* format = gst_structure_get_string(structure, "format");
  for (const Codec& codec : kCodecs) {
    if (!gst_structure_has_name(structure, codec.Nom)) continue;
    if (codec.Format != nullptr && g_strcmp0(codec.Format, format) != 0) continue;
    int version = 0;
    if (codec.Champ != nullptr && !gst_structure_get_int(structure, codec.Champ, &version)) continue;
    if (version == codec.Version) return codec.Id;
  }
  return AV_CODEC_ID_NONE;
}

std::optional<GstVideoFormat> FormatGStreamer(int formatAv) {
  for (const NomsFormat& noms : kFormats)
    if (noms.Av == formatAv) return noms.GStreamer;
  return std::nullopt;
}

void AnnonceCouleurs(const AVFrame& trame, GstVideoInfo& info) {
  GstVideoColorimetry& couleurs = info.colorimetry;
  if (GST_VIDEO_INFO_IS_RGB(&info)) {
    gst_video_colorimetry_from_string(&couleurs, GST_VIDEO_COLORIMETRY_SRGB);
    return;
  }
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

GstBuffer* TamponDeTrame(AVFrame& trame) {
  const std::optional<GstVideoFormat> format = FormatGStreamer(trame.format);
  if (!format) return nullptr;
  const GstVideoFormatInfo* info = gst_video_format_get_info(*format);
  const guint plans = GST_VIDEO_FORMAT_INFO_N_PLANES(info);
  for (guint plan = 0; plan < plans; ++plan) {
    if (trame.linesize[plan] <= 0) return nullptr;
  }
  TrameGardee* garde = TrameGardee::De(trame);
  if (garde == nullptr) return nullptr;
  GstBuffer* tampon = gst_buffer_new();
  std::array<gsize, GST_VIDEO_MAX_PLANES> debuts{};
  std::array<gint, GST_VIDEO_MAX_PLANES> pas{};
  gsize fin = 0;
  const AVFrame& image = garde->Image();
  for (guint plan = 0; plan < plans; ++plan) {
    // Planes and components come in the same order in all formats that are given out.
    const auto lignes = GST_VIDEO_FORMAT_INFO_SCALE_HEIGHT(info, plan, image.height);
    debuts.at(plan) = fin;
    pas.at(plan) = image.linesize[plan];
    const gsize taille = static_cast<gsize>(image.linesize[plan]) * static_cast<gsize>(lignes);
    gst_buffer_append_memory(tampon, MemoireDePlan(garde, image.data[plan], taille));
    fin += taille;
  }
  gst_buffer_add_video_meta_full(tampon, GST_VIDEO_FRAME_FLAG_NONE, *format, static_cast<guint>(image.width),
                                 static_cast<guint>(image.height), plans, debuts.data(), pas.data());
  if (image.decode_error_flags != 0 || (image.flags & AV_FRAME_FLAG_CORRUPT) != 0) {
    GST_BUFFER_FLAG_SET(tampon, GST_BUFFER_FLAG_CORRUPTED);
  }
  garde->Rend();
  return tampon;
}

}  // namespace vaktor
