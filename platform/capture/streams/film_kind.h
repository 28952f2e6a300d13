// What a film's first bytes tell of it.
#pragma once

#include <QString>

namespace vaktor {

/// Name of the GStreamer element that takes this file apart, for the common kinds whose demultiplexer plays segments
/// well: RIFF AVI, ISO base media (ISO/IEC 14496-12) and Matroska (RFC 9559). Null for everything else, and for what
/// cannot be read. Blocks as reading a file does.
const char* DemultiplexeurDuFilm(const QString& fichier);

}  // namespace vaktor
