#include "platform/capture/gst_start.h"

#include <gst/gst.h>

namespace vaktor {

bool PrepareGStreamer() {
  if (gst_is_initialized()) return true;
  GError* erreur = nullptr;
  const bool pret = gst_init_check(nullptr, nullptr, &erreur) != FALSE;
  g_clear_error(&erreur);
  return pret;
}

}  // namespace vaktor
