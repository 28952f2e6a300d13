#include "platform/capture/streams/camera_caps.h"

#include <array>

namespace vaktor {
namespace {

struct NomsCodage {
  const char* V4L2;
  const char* Media;
  const char* Format;  // of raw video
};

// The first line of a GStreamer name is the one that is told back.
constexpr std::array kCodages = {
    NomsCodage{"MJPG", "image/jpeg", nullptr},     NomsCodage{"JPEG", "image/jpeg", nullptr},
    NomsCodage{"H264", "video/x-h264", nullptr},   NomsCodage{"HEVC", "video/x-h265", nullptr},
    NomsCodage{"MPG4", "video/mpeg", nullptr},     NomsCodage{"VP80", "video/x-vp8", nullptr},
    NomsCodage{"VP90", "video/x-vp9", nullptr},    NomsCodage{"YUYV", "video/x-raw", "YUY2"},
    NomsCodage{"UYVY", "video/x-raw", "UYVY"},     NomsCodage{"YVYU", "video/x-raw", "YVYU"},
    NomsCodage{"NV12", "video/x-raw", "NV12"},     NomsCodage{"NM12", "video/x-raw", "NV12"},
    NomsCodage{"NV21", "video/x-raw", "NV21"},     NomsCodage{"NM21", "video/x-raw", "NV21"},
    NomsCodage{"NV16", "video/x-raw", "NV16"},     NomsCodage{"NV61", "video/x-raw", "NV61"},
    NomsCodage{"NV24", "video/x-raw", "NV24"},     NomsCodage{"YU12", "video/x-raw", "I420"},
    NomsCodage{"YM12", "video/x-raw", "I420"},     NomsCodage{"YV12", "video/x-raw", "YV12"},
    NomsCodage{"422P", "video/x-raw", "Y42B"},     NomsCodage{"411P", "video/x-raw", "Y41B"},
    NomsCodage{"RGB3", "video/x-raw", "RGB"},      NomsCodage{"BGR3", "video/x-raw", "BGR"},
    NomsCodage{"XR24", "video/x-raw", "BGRx"},     NomsCodage{"BGR4", "video/x-raw", "BGRx"},
    NomsCodage{"AR24", "video/x-raw", "BGRA"},     NomsCodage{"BX24", "video/x-raw", "xRGB"},
    NomsCodage{"RGB4", "video/x-raw", "xRGB"},     NomsCodage{"BA24", "video/x-raw", "ARGB"},
    NomsCodage{"XB24", "video/x-raw", "RGBx"},     NomsCodage{"AB24", "video/x-raw", "RGBA"},
    NomsCodage{"RGBP", "video/x-raw", "RGB16"},    NomsCodage{"RGBO", "video/x-raw", "RGB15"},
    NomsCodage{"XR15", "video/x-raw", "RGB15"},    NomsCodage{"GREY", "video/x-raw", "GRAY8"},
    NomsCodage{"Y16", "video/x-raw", "GRAY16_LE"}, NomsCodage{"Y16-BE", "video/x-raw", "GRAY16_BE"},
};

GstStructure* StructureDuCodage(const QString& codage) {
  for (const NomsCodage& noms : kCodages) {
    if (codage != QLatin1String(noms.V4L2)) continue;
    if (noms.Format == nullptr) return gst_structure_new_empty(noms.Media);
    return gst_structure_new(noms.Media, "format", G_TYPE_STRING, noms.Format, nullptr);
  }
  return nullptr;
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
  for (const NomsCodage& noms : kCodages) {
    if (!gst_structure_has_name(structure, noms.Media)) continue;
    if (noms.Format == nullptr || g_strcmp0(noms.Format, nomFormat) == 0) return QLatin1String(noms.V4L2);
  }
  return {};
}

}  // namespace vaktor
