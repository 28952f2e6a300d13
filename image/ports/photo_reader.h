// Port: reads one photo of the photo folder for the gallery.
#pragma once

#include <QImage>
#include <QString>

namespace vaktor {

/// How the reading of a photo went. Only kLue comes with a picture.
enum class EtatPhoto {
  kLue,
  kAbsente,    ///< the file is not there (any more) or may not be read
  kVide,       ///< a file of no bytes
  kIllisible,  ///< not a JPEG picture, or damaged beyond showing
  kTropGrande  ///< more pixels than kPixelsPhotoMax: nothing was decoded
};

/// 128 MB of memory: more than any camera gives, and little enough for the machine.
inline constexpr qint64 kPixelsPhotoMax = 32'000'000;

/// What is wrong with a picture that can be shown all the same.
enum class Dommage {
  kAucun,
  kCoupee,  ///< the file ends early, and the lower part of the picture is missing
  kFausse   ///< bytes inside are wrong: from there on the picture is not what was taken
};

struct PhotoLue {
  EtatPhoto Etat = EtatPhoto::kIllisible;
  QImage Image = {};
  Dommage Defaut = Dommage::kAucun;  ///< kLue
};

class LecteurPhotos {
 public:
  virtual ~LecteurPhotos() = default;
  /// The picture in its own size. Never throws; memory stays bounded whatever the file says of itself. A file that ends
  /// early gives the part that is there, and says so.
  virtual PhotoLue LitPhoto(const QString& chemin) const = 0;
};

}  // namespace vaktor
