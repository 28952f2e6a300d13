#include "platform/capture/gst_start.h"

#include "platform/capture/source_spec.h"
#include "platform/gstreamer/gst_plugins.h"
#include "platform/libav/libav_decoder.h"

namespace vaktor {
namespace {

bool Lance() {
  const bool pret = LanceGStreamer();
  // Where it is refused GStreamer's own decoders do the work.
  if (pret) EnregistreDecodeurLibav();
  return pret;
}

}  // namespace

// A network camera needs whatever decodes its stream: there the list of all plugins is read at once.
void LanceGStreamerPour(const QString& source) {
  if (ComprendSource(source).Genre != GenreSource::kReseau) LanceGStreamerSansListe();
}

bool PrepareGStreamer() {
  static const bool kPret = Lance();
  return kPret;
}

}  // namespace vaktor
