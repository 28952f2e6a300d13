// SPDX-License-Identifier: GPL-3.0-or-later
// Port: a JPEG encoder, and how the saving of a photo can end.
#pragma once

#include <QByteArrayView>
#include <QImage>

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

/// User-interface thread.
class EncodeurJpeg {
 public:
  virtual ~EncodeurJpeg() = default;
  /// Gets the encoder ready; kReussi at once when it is.
  virtual StatutJpeg Demarre() = 0;
  /// Encodes a picture that is not null, at 0 to 100. `octets` then shows the whole file; the memory is the encoder's
  /// and stays valid until its next call. Of no meaning unless the result is kReussi.
  virtual StatutJpeg Encode(const QImage& image, quint8 qualite, QByteArrayView& octets) = 0;
};

}  // namespace vaktor
