// GStreamer's own start, once in a process, before the first source is opened.
#pragma once

#include <QString>

namespace vaktor {

/// The start for the source that a process opens first (named_source.h says what the text means), which spares what
/// that source has no use for (LanceGStreamerSansListe). Before the process has a second thread; may be left out.
void LanceGStreamerPour(const QString& source);

/// Any thread; later calls cost nothing. False when GStreamer cannot run here: only the test picture then works.
/// Where plugins were installed or changed since the last start, this is when they are looked through (seconds).
bool PrepareGStreamer();

}  // namespace vaktor
