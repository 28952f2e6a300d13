// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/libav/libav_library.h"

#include <dlfcn.h>

#include <optional>
#include <string>

namespace vaktor {
namespace {

// A library found by its full name, version included: another version has other structures.
void* Ouvre(const char* nom, int version) {
  return dlopen((std::string(nom) + ".so." + std::to_string(version)).c_str(), RTLD_LAZY | RTLD_LOCAL);
}

template <typename T>
bool Trouve(void* bibliotheque, const char* nom, T& fonction) {
  fonction = reinterpret_cast<T>(dlsym(bibliotheque, nom));
  return fonction != nullptr;
}

std::optional<BibliothequeLibav> Charge() {
  void* codec = Ouvre("libavcodec", LIBAVCODEC_VERSION_MAJOR);
  void* outils = Ouvre("libavutil", LIBAVUTIL_VERSION_MAJOR);
  if (codec == nullptr || outils == nullptr) return std::nullopt;
  BibliothequeLibav b{};
  const bool complete =
      Trouve(codec, "avcodec_find_decoder", b.avcodec_find_decoder) &&
      Trouve(codec, "avcodec_alloc_context3", b.avcodec_alloc_context3) &&
      Trouve(codec, "avcodec_free_context", b.avcodec_free_context) &&
      Trouve(codec, "avcodec_open2", b.avcodec_open2) && Trouve(codec, "avcodec_send_packet", b.avcodec_send_packet) &&
      Trouve(codec, "avcodec_receive_frame", b.avcodec_receive_frame) &&
      Trouve(codec, "avcodec_flush_buffers", b.avcodec_flush_buffers) &&
      Trouve(codec, "av_packet_alloc", b.av_packet_alloc) && Trouve(codec, "av_packet_free", b.av_packet_free) &&
      Trouve(codec, "av_packet_unref", b.av_packet_unref) && Trouve(codec, "av_new_packet", b.av_new_packet) &&
      Trouve(outils, "av_frame_alloc", b.av_frame_alloc) && Trouve(outils, "av_frame_free", b.av_frame_free) &&
      Trouve(outils, "av_frame_unref", b.av_frame_unref) && Trouve(outils, "av_frame_move_ref", b.av_frame_move_ref) &&
      Trouve(outils, "av_frame_get_buffer", b.av_frame_get_buffer) &&
      Trouve(outils, "av_frame_copy_props", b.av_frame_copy_props) &&
      Trouve(outils, "av_pix_fmt_desc_get", b.av_pix_fmt_desc_get) && Trouve(outils, "av_mallocz", b.av_mallocz);
  if (!complete) return std::nullopt;
  return b;
}

std::optional<BibliothequeSws> ChargeSws() {
  void* echelle = Ouvre("libswscale", LIBSWSCALE_VERSION_MAJOR);
  if (echelle == nullptr) return std::nullopt;
  BibliothequeSws b{};
  if (!Trouve(echelle, "sws_getCachedContext", b.sws_getCachedContext) || !Trouve(echelle, "sws_scale", b.sws_scale) ||
      !Trouve(echelle, "sws_freeContext", b.sws_freeContext))
    return std::nullopt;
  return b;
}

}  // namespace

const BibliothequeLibav* Libav() {
  static const std::optional<BibliothequeLibav> kBibliotheque = Charge();
  return kBibliotheque ? &*kBibliotheque : nullptr;
}

const BibliothequeSws* Sws() {
  static const std::optional<BibliothequeSws> kBibliotheque = ChargeSws();
  return kBibliotheque ? &*kBibliotheque : nullptr;
}

}  // namespace vaktor
