// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/gst_setup.h"

#include <gst/gst.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <span>

#include "platform/capture/choice/codings.h"
#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/streams/stream_size.h"
#include "platform/libav/libav_decoder.h"

namespace vaktor {
namespace {

bool Lance() {
  const bool pret = gst_init_check(nullptr, nullptr, nullptr) != FALSE;
  // Where it is refused GStreamer's own decoders do the work.
  if (pret) EnregistreDecodeurLibav();
  return pret;
}

}  // namespace

bool PrepareGStreamer() {
  static const bool kPret = Lance();
  return kPret;
}

namespace {

// GstAutoplugSelectResult: the type is decodebin's own and stands in no header.
enum ChoixDecodeur { kEssaie = 0, kMontre = 1, kPasse = 2 };

bool Commence(const char* nom, const char* debut) { return std::strncmp(nom, debut, std::strlen(debut)) == 0; }

// JPEG that comes straight out of a file or a connection has no borders between its pictures yet: the search for the
// type names the kind of its frame header, the parser says that it is done, and neither stands in a demuxer's caps.
bool EstFluxSansBornes(const GstStructure* structure) {
  return gst_structure_has_field(structure, "sof-marker") && !gst_structure_has_field(structure, "parsed");
}

gboolean Continue(GstElement*, GstPad*, GstCaps* caps, gpointer) {
  if (gst_caps_is_empty(caps) || gst_caps_is_any(caps)) return TRUE;
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  const char* nom = gst_structure_get_name(structure);
  if (std::strcmp(nom, "image/jpeg") == 0) return EstFluxSansBornes(structure) ? TRUE : FALSE;
  for (const char* inutile : {"audio/", "text/", "subpicture/", "subtitle/", "closedcaption/"}) {
    if (Commence(nom, inutile)) return FALSE;
  }
  return TRUE;
}

bool EstParmi(const GstStructure* structure, std::span<const char* const> noms) {
  return std::any_of(noms.begin(), noms.end(),
                     [&](const char* nom) { return gst_structure_has_name(structure, nom) != FALSE; });
}

// They name other addresses, which would be fetched.
bool EstListe(const GstStructure* structure) {
  static constexpr std::array kListes = {"application/x-hls", "application/dash+xml", "application/vnd.ms-sstr+xml",
                                         "application/sdp", "text/uri-list"};
  return EstParmi(structure, kListes);
}

// Codings and what they are packed in. Of "video/mpeg" the fourth version only, and not what films are packed in.
bool EstDeCamera(const GstStructure* structure) {
  static constexpr std::array kDeCameras = {
      "image/jpeg",      "video/x-h264",     "video/x-h265",      "video/x-vp8",
      "video/x-vp9",     "video/x-av1",      "application/x-rtp", "multipart/x-mixed-replace",
      "video/quicktime", "video/x-matroska", "video/webm",        "video/mpegts"};
  int version = 0;
  if (gst_structure_has_name(structure, "video/mpeg")) {
    return gst_structure_get_int(structure, "mpegversion", &version) != FALSE && version == 4;
  }
  return EstParmi(structure, kDeCameras);
}

bool EstPourNous(GstElementFactory* fabrique, const GstCaps* caps) {
  static GstElementFactory* const kNotre = gst_element_factory_find("vaktorlibav");
  if (kNotre == nullptr || fabrique == kNotre || gst_element_factory_can_sink_any_caps(kNotre, caps) == FALSE) {
    return false;
  }
  return gst_element_factory_list_is_type(fabrique, GST_ELEMENT_FACTORY_TYPE_DECODER) != FALSE;
}

std::optional<qint64> DitPixels(const GstStructure* structure) {
  int largeur = 0;
  int hauteur = 0;
  if (gst_structure_get_int(structure, "width", &largeur) == FALSE ||
      gst_structure_get_int(structure, "height", &hauteur) == FALSE || largeur <= 0 || hauteur <= 0)
    return std::nullopt;
  return qint64{largeur} * hauteur;
}

// Nor is anybody's decoder but ours asked for pictures of which nobody has told how large they are, or that are too
// large.
bool DitTailleTenable(const GstStructure* structure) {
  const std::optional<qint64> pixels = DitPixels(structure);
  return pixels && *pixels <= kPixelsMaximum;
}

bool EstDecodeurEtranger(GstElementFactory* fabrique) {
  return g_strcmp0(GST_OBJECT_NAME(fabrique), "vaktorlibav") != 0 &&
         gst_element_factory_list_is_type(fabrique, GST_ELEMENT_FACTORY_TYPE_DECODER |
                                                        GST_ELEMENT_FACTORY_TYPE_MEDIA_VIDEO |
                                                        GST_ELEMENT_FACTORY_TYPE_MEDIA_IMAGE) != FALSE;
}

int Choisit(GstElement* decodage, GstPad*, GstCaps* caps, GstElementFactory* fabrique, gpointer reseau) {
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  if (EstListe(structure) || (reseau != nullptr && !EstDeCamera(structure))) return kPasse;
  if (DitPixels(structure).value_or(0) > kPixelsMaximum) NoteTropDePixels(decodage);
  if (EstPourNous(fabrique, caps)) return kPasse;
  if (EstDecodeurEtranger(fabrique) && !DitTailleTenable(structure)) return kPasse;
  const char* classe = gst_element_factory_get_metadata(fabrique, GST_ELEMENT_METADATA_KLASS);
  return classe != nullptr && std::strstr(classe, "Hardware") != nullptr ? kPasse : kEssaie;
}

// libav decoders would take a thread for each core, and a set of frames for each thread. The demultiplexer of web
// cameras never tells that there is one stream and no more; whatever follows would wait for that until its queues are
// full.
void RegleElement(GstBin*, GstElement* element, gpointer) {
  if (EstDeFabrique(element, "multipartdemux")) g_object_set(element, "single-stream", TRUE, nullptr);
  if (EstDeFabrique(element, "vaktorlibav")) g_object_set(element, "max-pixels", gint64{kPixelsMaximum}, nullptr);
  if (GstElementFactory* fabrique = gst_element_get_factory(element); fabrique && EstDecodeurEtranger(fabrique)) {
    // What the film is packed in has told a size that can be held; what the pictures tell is another matter.
    GardeEntree(element);
  }
  for (const char* propriete : {"max-threads", "threads", "n-threads"}) {
    const GParamSpec* sorte = g_object_class_find_property(G_OBJECT_GET_CLASS(element), propriete);
    if (sorte == nullptr || (sorte->flags & G_PARAM_WRITABLE) == 0) continue;
    gst_util_set_object_arg(G_OBJECT(element), propriete, "1");
  }
}

}  // namespace

void ChoisitDecodeurs(GstElement* decodebin, bool reseau) {
  g_signal_connect(decodebin, "autoplug-continue", G_CALLBACK(Continue), nullptr);
  g_signal_connect(decodebin, "autoplug-select", G_CALLBACK(Choisit), reseau ? decodebin : nullptr);
  g_signal_connect(decodebin, "element-added", G_CALLBACK(RegleElement), nullptr);
}

bool EstDeFabrique(GstElement* element, const char* nom) {
  GstElementFactory* fabrique = gst_element_get_factory(element);
  return fabrique != nullptr && std::strcmp(GST_OBJECT_NAME(fabrique), nom) == 0;
}

bool EstVideo(const GstCaps* caps) {
  if (gst_caps_is_empty(caps) || gst_caps_is_any(caps)) return false;
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  return gst_structure_has_name(structure, "video/x-raw") || gst_structure_has_name(structure, "image/jpeg");
}

gboolean EstFluxVideo(GstElement*, guint, const GstCaps* caps, gpointer) {
  const char* media = gst_structure_get_string(gst_caps_get_structure(caps, 0), "media");
  return media != nullptr && std::strcmp(media, "video") == 0 ? TRUE : FALSE;
}

namespace {

GstStructure* StructureDuCodage(const QString& code) {
  const CodageCamera* codage = TrouveCodage(code);
  if (codage == nullptr) return nullptr;
  if (codage->Format == nullptr) return gst_structure_new_empty(codage->Media);
  return gst_structure_new(codage->Media, "format", G_TYPE_STRING, codage->Format, nullptr);
}

void AjouteTailleEtCadence(GstCaps* caps, const FormatCamera& format) {
  if (format.Largeur > 0 && format.Hauteur > 0) {
    gst_caps_set_simple(caps, "width", G_TYPE_INT, format.Largeur, "height", G_TYPE_INT, format.Hauteur, nullptr);
  }
  if (format.CadenceNum > 0 && format.CadenceDen > 0) {
    gst_caps_set_simple(caps, "framerate", GST_TYPE_FRACTION, format.CadenceNum, format.CadenceDen, nullptr);
  }
}

}  // namespace

PtrGst<GstCaps> CapsDuFormat(const FormatCamera& format) {
  if (format == FormatCamera()) return PtrGst<GstCaps>(gst_caps_new_any());
  PtrGst<GstCaps> caps(gst_caps_new_empty());
  if (format.Codage.isEmpty()) {
    gst_caps_append_structure(caps.get(), gst_structure_new_empty("image/jpeg"));
    gst_caps_append_structure(caps.get(), gst_structure_new_empty("video/x-raw"));
  } else {
    GstStructure* structure = StructureDuCodage(format.Codage);
    if (structure == nullptr) return nullptr;
    gst_caps_append_structure(caps.get(), structure);
  }
  AjouteTailleEtCadence(caps.get(), format);
  return caps;
}

QString CodageDesCaps(const GstCaps* caps) {
  if (caps == nullptr || gst_caps_get_size(caps) == 0) return {};
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  const char* nomFormat = gst_structure_get_string(structure, "format");
  for (const CodageCamera& codage : TousCodages()) {
    if (!gst_structure_has_name(structure, codage.Media)) continue;
    if (codage.Format == nullptr || g_strcmp0(codage.Format, nomFormat) == 0) return QLatin1String(codage.V4L2);
  }
  return {};
}

}  // namespace vaktor
