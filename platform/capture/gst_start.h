// GStreamer's own start, once in a process, before the first source is opened.
#pragma once

namespace vaktor {

/// Any thread; later calls cost nothing. False when GStreamer cannot run here: only the test picture then works.
/// Where plugins were installed or changed since the last start, this is when they are looked through (seconds).
bool PrepareGStreamer();

}  // namespace vaktor
