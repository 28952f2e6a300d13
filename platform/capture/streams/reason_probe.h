// SPDX-License-Identifier: GPL-3.0-or-later
// What GStreamer and the system say of a source that gives no picture.
#pragma once

#include <gst/gst.h>

#include <chrono>
#include <stop_token>

#include "platform/capture/choice/capture_reason.h"
#include "platform/capture/choice/named_source.h"

namespace vaktor {

/// Of an error of the pipeline. Motif::kInconnu where it says nothing that a person could use.
Raison LitRaison(GstMessage* erreur);
/// Of a message of an element: what decodebin says before it gives up. A part of the stream that is no picture may be
/// meant: it is looked at only where no picture comes.
Raison LitManque(GstMessage* message);

/// Opens a device, or a file, once, and closes it again. May block as long as the system makes it.
Raison SondeOuverture(const QString& chemin, bool peripherique);

/// How far the way to a network camera goes: its name, the route, its port, its certificate; then lets go again,
/// without a word. Motif::kInconnu when all of it goes well. Waits no longer than `limite`, and no longer than `arret`
/// lets it.
Raison SondeReseau(const SourceCapture& source, const std::stop_token& arret, std::chrono::milliseconds limite);

}  // namespace vaktor
