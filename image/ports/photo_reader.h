// SPDX-License-Identifier: GPL-3.0-or-later
// Port: reads one photo of the photo folder for the gallery, without holding up the window.
#pragma once

#include <QImage>
#include <QString>
#include <functional>

namespace vaktor {

/// How the reading of a photo went. Only kLue comes with a picture.
enum class EtatPhoto {
  kLue,
  kAbsente,     ///< the file is not there (any more) or may not be read
  kVide,        ///< a file of no bytes
  kIllisible,   ///< not a JPEG picture, or damaged beyond showing
  kTropGrande,  ///< no picture of it fits into kPixelsPhotoMax, or into a bounded memory on the way: nothing was
                ///< decoded
  kSansMoyens,  ///< this machine has no thread or no memory for it at the moment: says nothing of the photo
  kSansReponse  ///< the disk has not answered for some time; the photo may still come
};

/// 128 MB of memory: more than a screen shows, and little enough for the machine. A larger photo comes smaller.
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

/// User-interface thread.
class LecteurPhotos {
 public:
  using Recoit = std::function<void(const PhotoLue&)>;

  virtual ~LecteurPhotos() = default;
  /// Reads the photo of a path in its stored form: in its own size, or, above kPixelsPhotoMax, in the largest eighths
  /// of its sides that stay below. A file that ends early gives the part that is there, and says so. Calls `recoit`
  /// from the event loop, later: once, or kSansReponse and then once more. A reading that is still under way is
  /// forgotten and its `recoit` not called any more.
  virtual void LitPhoto(const QString& chemin, Recoit recoit) = 0;
  /// Forgets the reading that is under way, if there is one.
  virtual void Oublie() = 0;
};

}  // namespace vaktor
