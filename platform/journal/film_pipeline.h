// SPDX-License-Identifier: GPL-3.0-or-later
// The making of a film, on the thread of whoever calls.
#pragma once

#include <atomic>
#include <functional>

#include "journal/ports/film_writer.h"

namespace vaktor {

/// Whether GStreamer has what it takes. Any thread.
bool SaitFilm(FormatFilm format);

/// Makes the film and returns when it is on the disk, or when nothing of it is. It grows beside its place, under its
/// name with ".part" behind it. Stops soon after `abandon` has become true, but for a disk that does not answer.
FilmFait FaitFilm(const FilmVoulu& film, const std::atomic<bool>& abandon, const std::function<void(int)>& avance);

}  // namespace vaktor
