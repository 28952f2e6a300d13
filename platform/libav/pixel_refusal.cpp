// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/libav/pixel_refusal.h"

namespace vaktor {

void RefuseTropDePixels(GstElement* element) {
  gst_element_message_full(element, GST_MESSAGE_ERROR, GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_NO_SPACE_LEFT,
                           g_strdup("a picture of too many pixels"), nullptr, __FILE__, __func__, __LINE__);
}

}  // namespace vaktor
