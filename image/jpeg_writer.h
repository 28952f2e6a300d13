// The one writer of JPEG files.
#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QString>

#include "settings/ports/files.h"

namespace vaktor {

/// Why a photo was not saved: the number at the end of the writer's message. The numbers never change. They are those
/// of the GDI+ status table, as far as one of them fits, because users know and search for these.
enum class StatutJpeg : qint32 {
  kReussi = 0,
  kErreurGenerique = 1,    ///< the encoder refused the picture for a reason of its own
  kParametreInvalide = 2,  ///< no picture (a zero handle), or a quality above 100
  kMemoireEpuisee = 3,     ///< no memory for the encoder's output
  kErreurSysteme = 7,      ///< the system failed while writing: disk full, quota reached, device error, anything else
  kFichierAbsent = 10,     ///< the folder does not exist
  kValeurTropGrande =
      11,             ///< the picture is wider or higher than a JPEG file can be (65,500 here), or the name too long
  kAccesRefuse = 12,  ///< the folder or file may not be written, or a folder stands in the file's place
  kEncodeurIndisponible = 18  ///< the encoder could not be started
};

/// Port: a JPEG encoder. User-interface thread. Real implementation in platform/image/.
class EncodeurJpeg {
 public:
  virtual ~EncodeurJpeg() = default;
  /// Gets the encoder ready; kReussi at once when it is.
  virtual StatutJpeg Demarre() = 0;
  /// Encodes a picture that is not null, at 0 to 100. `octets` then shows the whole file; the memory is the encoder's
  /// and stays valid until its next call. Of no meaning unless the result is kReussi.
  virtual StatutJpeg Encode(const QImage& image, quint8 qualite, QByteArrayView& octets) = 0;
};

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
