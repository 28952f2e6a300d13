#include "platform/capture/streams/gst_start.h"

#include "platform/capture/choice/named_source.h"
#include "platform/capture/streams/film_kind.h"
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

// A network camera, and a film of a seldom kind, need whatever decodes their stream: there the list of all plugins is
// read at once. Later it cannot be read any more, and all plugins have to be searched.
void LanceGStreamerPour(const QString& source) {
  const SourceCapture quoi = ComprendSource(source);
  if (quoi.Genre == GenreSource::kReseau) return;
  if (quoi.Genre == GenreSource::kFichier && DemultiplexeurDuFilm(quoi.Lieu) == nullptr) return;
  LanceGStreamerSansListe();
}

bool PrepareGStreamer() {
  static const bool kPret = Lance();
  return kPret;
}

}  // namespace vaktor
