#include "platform/capture/gst_start.h"

#include <gst/gst.h>

#include "platform/libav/libav_decoder.h"

namespace vaktor {
namespace {

bool LanceGStreamer() {
  GError* erreur = nullptr;
  const bool pret = gst_init_check(nullptr, nullptr, &erreur) != FALSE;
  g_clear_error(&erreur);
  // Where it is refused GStreamer's own decoders do the work.
  if (pret) EnregistreDecodeurLibav();
  return pret;
}

}  // namespace

bool PrepareGStreamer() {
  static const bool kPret = LanceGStreamer();
  return kPret;
}

}  // namespace vaktor
