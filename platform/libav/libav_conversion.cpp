// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/libav/libav_conversion.h"

#include "platform/libav/libav_formats.h"
#include "platform/libav/libav_library.h"

namespace vaktor {
namespace {

bool EstALEnvers(const AVFrame& trame) {
  for (const int pas : trame.linesize)
    if (pas < 0) return true;
  return false;
}

// As many samples as the picture has, so that nothing of it is lost but the depth.
AVPixelFormat FormatVoisin(const AVPixFmtDescriptor& sorte) {
  constexpr int kCouleursDirectes = AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BAYER;
  if ((sorte.flags & kCouleursDirectes) != 0) return AV_PIX_FMT_BGR0;
  if (sorte.nb_components < 3) return AV_PIX_FMT_GRAY8;
  if (sorte.log2_chroma_w == 0) return AV_PIX_FMT_YUV444P;
  return sorte.log2_chroma_w == 1 && sorte.log2_chroma_h == 0 ? AV_PIX_FMT_YUV422P : AV_PIX_FMT_YUV420P;
}

}  // namespace

ConversionLibav::~ConversionLibav() {
  if (Contexte_ != nullptr) Sws()->sws_freeContext(Contexte_);
}

// Neither the matrix nor the range is told to the library: between formats of the same kind it then changes neither,
// and the picture goes on saying which ones it has.
bool ConversionLibav::MetEnForme(AVFrame& trame) {
  if (FormatGStreamer(trame.format) && !EstALEnvers(trame)) return true;
  const auto format = static_cast<AVPixelFormat>(trame.format);
  const AVPixFmtDescriptor* sorte = Libav()->av_pix_fmt_desc_get(format);
  if (sorte == nullptr || Sws() == nullptr) return false;
  const AVPixelFormat vers = FormatGStreamer(format) ? format : FormatVoisin(*sorte);
  Contexte_ = Sws()->sws_getCachedContext(Contexte_, trame.width, trame.height, format, trame.width, trame.height, vers,
                                          SWS_POINT, nullptr, nullptr, nullptr);
  AVFrame* faite = Contexte_ == nullptr ? nullptr : Libav()->av_frame_alloc();
  if (faite == nullptr) return false;
  faite->format = vers;
  faite->width = trame.width;
  faite->height = trame.height;
  const bool reussi = Libav()->av_frame_get_buffer(faite, 0) >= 0 && Libav()->av_frame_copy_props(faite, &trame) >= 0 &&
                      Sws()->sws_scale(Contexte_, trame.data, trame.linesize, 0, trame.height, faite->data,
                                       faite->linesize) == trame.height;
  if (reussi) {
    Libav()->av_frame_unref(&trame);
    Libav()->av_frame_move_ref(&trame, faite);
  }
  Libav()->av_frame_free(&faite);
  return reussi;
}

}  // namespace vaktor
