#include "platform/capture/decoder_choice.h"

#include <array>
#include <cstring>

#include "platform/capture/gst_objects.h"

namespace vaktor {
namespace {

// GstAutoplugSelectResult: the type is decodebin's own and stands in no header.
enum ChoixDecodeur { kEssaie = 0, kMontre = 1, kPasse = 2 };

bool Commence(const char* nom, const char* debut) { return std::strncmp(nom, debut, std::strlen(debut)) == 0; }

const char* NomFabrique(GstElement* element) {
  GstElementFactory* fabrique = gst_element_get_factory(element);
  return fabrique == nullptr ? "" : GST_OBJECT_NAME(fabrique);
}

// JPEG that comes straight out of a file or a connection has no borders between its pictures yet.
bool EstFluxSansBornes(GstPad* sortie) {
  const PtrGst<GstElement> element(gst_pad_get_parent_element(sortie));
  return element && std::strcmp(NomFabrique(element.get()), "typefind") == 0;
}

gboolean Continue(GstElement*, GstPad* sortie, GstCaps* caps, gpointer) {
  if (gst_caps_is_empty(caps) || gst_caps_is_any(caps)) return TRUE;
  const char* nom = gst_structure_get_name(gst_caps_get_structure(caps, 0));
  if (std::strcmp(nom, "image/jpeg") == 0) return EstFluxSansBornes(sortie) ? TRUE : FALSE;
  for (const char* inutile : {"audio/", "text/", "subpicture/", "subtitle/", "closedcaption/"}) {
    if (Commence(nom, inutile)) return FALSE;
  }
  return TRUE;
}

int Choisit(GstElement*, GstPad*, GstCaps*, GstElementFactory* fabrique, gpointer) {
  const char* classe = gst_element_factory_get_metadata(fabrique, GST_ELEMENT_METADATA_KLASS);
  return classe != nullptr && std::strstr(classe, "Hardware") != nullptr ? kPasse : kEssaie;
}

// libav decoders would take a thread for each core, and a set of frames for each thread.
void LimiteDecodeur(GstBin*, GstElement* element, gpointer) {
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
  g_signal_connect(decodebin, "element-added", G_CALLBACK(LimiteDecodeur), nullptr);
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

}  // namespace vaktor
