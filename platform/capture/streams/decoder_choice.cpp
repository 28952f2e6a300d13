#include "platform/capture/streams/decoder_choice.h"

#include <array>
#include <cstring>

#include "platform/capture/streams/gst_objects.h"
#include "platform/libav/packet_decoder.h"

namespace vaktor {
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

int Choisit(GstElement*, GstPad*, GstCaps* caps, GstElementFactory* fabrique, gpointer) {
  // VP9 hides frames within frames, which our own element does not take apart.
  if (gst_structure_has_name(gst_caps_get_structure(caps, 0), "video/x-vp9") &&
      std::strcmp(GST_OBJECT_NAME(fabrique), "vaktorlibav") == 0)
    return kPasse;
  const char* classe = gst_element_factory_get_metadata(fabrique, GST_ELEMENT_METADATA_KLASS);
  return classe != nullptr && std::strstr(classe, "Hardware") != nullptr ? kPasse : kEssaie;
}

// libav decoders would take a thread for each core, and a set of frames for each thread. The demultiplexer of web
// cameras never tells that there is one stream and no more; whatever follows would wait for that until its queues are
// full.
void RegleElement(GstBin*, GstElement* element, gpointer) {
  if (EstDeFabrique(element, "multipartdemux")) g_object_set(element, "single-stream", TRUE, nullptr);
  for (const char* propriete : {"max-threads", "threads", "n-threads"}) {
    const GParamSpec* sorte = g_object_class_find_property(G_OBJECT_GET_CLASS(element), propriete);
    if (sorte == nullptr || (sorte->flags & G_PARAM_WRITABLE) == 0) continue;
    gst_util_set_object_arg(G_OBJECT(element), propriete, "1");
  }
}

}  // namespace

void ChoisitDecodeurs(GstElement* decodebin) {
  g_signal_connect(decodebin, "autoplug-continue", G_CALLBACK(Continue), nullptr);
  g_signal_connect(decodebin, "autoplug-select", G_CALLBACK(Choisit), nullptr);
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

bool EstFilm(const GstCaps* caps) {
  return !gst_caps_is_empty(caps) && !gst_caps_is_any(caps) &&
         Commence(gst_structure_get_name(gst_caps_get_structure(caps, 0)), "video/");
}

bool EstDecodableDansLePuits(const GstCaps* caps) {
  const PtrGst<GstCaps> paquets(gst_caps_from_string(kCapsPaquets));
  return gst_caps_is_subset(caps, paquets.get()) != FALSE;
}

bool EstDecodableDirect(const GstCaps* caps) {
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  if (!gst_structure_has_name(structure, "video/x-h264")) return false;
  if (g_strcmp0(gst_structure_get_string(structure, "stream-format"), "avc") != 0) return false;
  const char* profil = gst_structure_get_string(structure, "profile");
  for (const char* connu : {"constrained-baseline", "baseline", "main", "high"}) {
    if (g_strcmp0(profil, connu) == 0) return true;
  }
  return false;
}

// MPEG-4 part 2 proper is among them: in AVI it is known to pack two pictures into one piece.
bool EstDecodableAvecAnalyseur(const GstCaps* caps) {
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  for (const char* nom : {"video/x-h264", "video/x-h265", "video/mpeg", "video/x-divx", "video/x-xvid"}) {
    if (gst_structure_has_name(structure, nom)) return true;
  }
  return false;
}

gboolean EstFluxVideo(GstElement*, guint, const GstCaps* caps, gpointer) {
  const char* media = gst_structure_get_string(gst_caps_get_structure(caps, 0), "media");
  return media != nullptr && std::strcmp(media, "video") == 0 ? TRUE : FALSE;
}

}  // namespace vaktor
