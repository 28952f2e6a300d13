// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the photos of the gallery from disk.
#pragma once

#include "image/ports/photo_reader.h"

namespace vaktor {

/// The photo of a path in its stored form, as LecteurPhotos tells; kSansReponse is none of its answers. From any
/// thread; for a disk that does not answer it lasts for ever. May throw std::bad_alloc.
///
/// JPEG only, whatever the name ends in: what lies in a photo folder need not be ours, and no other decoder is to meet
/// it. Files beyond 64 MB are never read whole; damage in these goes unseen. So does damage that happens to make a
/// picture without a fault: the format has no check sums.
PhotoLue LitPhotoJpeg(const QString& chemin);

}  // namespace vaktor
