// The one writer of JPEG files.
#pragma once

#include <QImage>
#include <QString>

namespace vaktor {

class EcrivainJpeg {
 public:
  virtual ~EcrivainJpeg() = default;
  /// Encodes `image` (RGB32, its own size, no metadata) at `qualite` 0 to 100, not tested, and writes the file, which
  /// blocks until it is on disk. Throws Echec(kAppelIncorrect, "Cannot save the image. GDI+ Error:" + status in
  /// decimal, no blank between). A partly written file is not removed.
  virtual void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) = 0;
};

}  // namespace vaktor
