// SPDX-License-Identifier: GPL-3.0-or-later
// libavcodec, loaded when the first stream needs it and not with the program: it brings sixty libraries along, 12 MB
// that a camera of the machine, with raw or JPEG pictures, has no use for. libswscale likewise, when the first picture
// comes that nobody here has a name for.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace vaktor {

/// The functions that are used, under their own names.
struct BibliothequeLibav {
  decltype(&::avcodec_find_decoder) avcodec_find_decoder;
  decltype(&::avcodec_alloc_context3) avcodec_alloc_context3;
  decltype(&::avcodec_free_context) avcodec_free_context;
  decltype(&::avcodec_open2) avcodec_open2;
  decltype(&::avcodec_send_packet) avcodec_send_packet;
  decltype(&::avcodec_receive_frame) avcodec_receive_frame;
  decltype(&::avcodec_flush_buffers) avcodec_flush_buffers;
  decltype(&::av_packet_alloc) av_packet_alloc;
  decltype(&::av_packet_free) av_packet_free;
  decltype(&::av_packet_unref) av_packet_unref;
  decltype(&::av_new_packet) av_new_packet;
  decltype(&::av_frame_alloc) av_frame_alloc;
  decltype(&::av_frame_free) av_frame_free;
  decltype(&::av_frame_unref) av_frame_unref;
  decltype(&::av_frame_move_ref) av_frame_move_ref;
  decltype(&::av_frame_get_buffer) av_frame_get_buffer;
  decltype(&::av_frame_copy_props) av_frame_copy_props;
  decltype(&::av_pix_fmt_desc_get) av_pix_fmt_desc_get;
  decltype(&::av_mallocz) av_mallocz;
};

/// The library of the version that the program was built with, loaded at the first call and never unloaded. Null when
/// it is not there. Any thread.
const BibliothequeLibav* Libav();

struct BibliothequeSws {
  decltype(&::sws_getCachedContext) sws_getCachedContext;
  decltype(&::sws_scale) sws_scale;
  decltype(&::sws_freeContext) sws_freeContext;
};
/// The same of libswscale.
const BibliothequeSws* Sws();

}  // namespace vaktor
