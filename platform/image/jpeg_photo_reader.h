// Reads the photos of the gallery from disk.
#pragma once

#include "image/ports/photo_reader.h"

namespace vaktor {

/// JPEG only, whatever the name ends in: what lies in a photo folder need not be ours, and no other decoder is to meet
/// it. The file is read as it is decoded, never whole.
class LecteurPhotosFichier : public LecteurPhotos {
 public:
  PhotoLue LitPhoto(const QString& chemin) const override;
};

}  // namespace vaktor
