// SPDX-License-Identifier: GPL-3.0-or-later
// How an element tells that a picture has more pixels than get memory.
#pragma once

#include <gst/gst.h>

namespace vaktor {

/// Posts GST_RESOURCE_ERROR_NO_SPACE_LEFT on the bus of `element`: else only what writes tells that, and in pipelines
/// that read nothing does. Any thread.
void RefuseTropDePixels(GstElement* element);

}  // namespace vaktor
