// The one writer of JPEG files, over an encoder and the files of the disk.
#pragma once

#include <QImage>
#include <QString>

#include "image/ports/jpeg_encoder.h"
#include "settings/ports/files.h"

namespace vaktor {

class EcrivainJpeg {
 public:
  virtual ~EcrivainJpeg() = default;
  /// Encodes `image` (RGB32, its own size, no metadata) at `qualite` 0 to 100, not tested, and writes the file, which
  /// blocks until it is on disk. Throws Echec(kAppelIncorrect, "Cannot save the image. GDI+ Error:" + status in
  /// decimal, no blank between), with a status of StatutJpeg. A null image fails with no file written. A partly
  /// written file is not removed.
  /// "On disk": the file system has every byte and the file is closed, so every other program sees the whole file. The
  /// system's own cache is not flushed to the medium: that takes longer than the time between two frames, and all it
  /// would guard against is a power failure of the next seconds.
  virtual void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) = 0;
};

/// The writer over its two ports. Holds nothing between two calls. User-interface thread.
class EcrivainJpegFichier : public EcrivainJpeg {
 public:
  EcrivainJpegFichier(EncodeurJpeg& encodeur, Fichiers& disque) : Encodeur_(encodeur), Disque_(disque) {}
  void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) override;

  /// The status for an error number of Fichiers::EcritFichier (errno; 0 gives kReussi).
  static StatutJpeg StatutEcriture(int erreur);

 private:
  StatutJpeg Enregistre(const QImage& image, const QString& fichier, quint8 qualite);

  EncodeurJpeg& Encodeur_;
  Fichiers& Disque_;
};

}  // namespace vaktor
