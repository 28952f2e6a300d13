// SPDX-License-Identifier: GPL-3.0-or-later
// The one writer of JPEG files, over an encoder and the files of the disk.
#pragma once

#include <QImage>
#include <QString>

#include "base/failure.h"
#include "image/ports/jpeg_encoder.h"
#include "settings/ports/files.h"

namespace vaktor {

/// What the writer throws: Echec(kAppelIncorrect, "Cannot save the image. GDI+ Error:" + status in decimal, no blank
/// between), and what lies behind that number.
class EchecJpeg : public Echec {
 public:
  EchecJpeg(StatutJpeg statut, int erreur);
  StatutJpeg Statut() const { return Statut_; }
  /// The system's error number (errno); 0 when no file was written to.
  int Erreur() const { return Erreur_; }

 private:
  StatutJpeg Statut_;
  int Erreur_;
};

class EcrivainJpeg {
 public:
  virtual ~EcrivainJpeg() = default;
  /// Encodes `image` (RGB32, its own size, no metadata) at `qualite` 0 to 100, not tested, and writes the file, which
  /// blocks until it is on disk. Throws EchecJpeg. A null image fails with no file written. A partly written file is
  /// not removed.
  /// "On disk": the file system has every byte and the file is closed, so every other program sees the whole file. The
  /// medium itself is not waited for: that takes longer than the time between two frames.
  /// A disk that does not answer fails like one that cannot be written to; its file may still come into being later.
  virtual void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) = 0;
  /// The same for a photo, which has to stay: a file that is there already is never replaced, a letter then follows in
  /// the new one's name, which is given back: a path with "/" between the folders. It is on its way to the medium when
  /// the call returns.
  virtual QString EnregistreNouveauJPEG(const QImage& image, const QString& fichier, quint8 qualite) = 0;
};

/// The writer over its two ports. Holds nothing between two calls. User-interface thread.
class EcrivainJpegFichier : public EcrivainJpeg {
 public:
  EcrivainJpegFichier(EncodeurJpeg& encodeur, Fichiers& disque) : Encodeur_(encodeur), Disque_(disque) {}
  void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) override;
  QString EnregistreNouveauJPEG(const QImage& image, const QString& fichier, quint8 qualite) override;

  /// The status for an error number of Fichiers::EcritFichier (errno; 0 gives kReussi).
  static StatutJpeg StatutEcriture(int erreur);

 private:
  QByteArrayView Encode(const QImage& image, quint8 qualite);

  EncodeurJpeg& Encodeur_;
  Fichiers& Disque_;
};

}  // namespace vaktor
