// SPDX-License-Identifier: GPL-3.0-or-later
// libavcodec, loaded when the first stream needs it and not with the program: it brings sixty libraries along, 12 MB
// that a camera of the machine, with raw or JPEG pictures, has no use for.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
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
  decltype(&::av_mallocz) av_mallocz;
};

/// The library of the version that the program was built with, loaded at the first call and never unloaded. Null when
/// it is not there. Any thread.
const BibliothequeLibav* Libav();

}  // namespace vaktor
