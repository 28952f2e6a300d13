#include "image/jpeg_writer.h"

#include <cerrno>

#include "base/failure.h"

namespace vaktor {

void EcrivainJpegFichier::EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) {
  const StatutJpeg statut = Enregistre(image, fichier, qualite);
  if (statut == StatutJpeg::kReussi) return;
  // English in both languages: nobody is shown this text, it is there for the one who looks for the cause.
  throw Echec(kAppelIncorrect,
              QStringLiteral("Cannot save the image. GDI+ Error:") + QString::number(static_cast<qint32>(statut)));
}

StatutJpeg EcrivainJpegFichier::Enregistre(const QImage& image, const QString& fichier, quint8 qualite) {
  // The encoder comes first: when it is missing that is the cause to tell, whatever the picture.
  if (const StatutJpeg statut = Encodeur_.Demarre(); statut != StatutJpeg::kReussi) return statut;
  if (image.isNull()) return StatutJpeg::kParametreInvalide;
  // The file is opened only once its bytes are there, so a picture that cannot be encoded leaves an earlier file alone.
  QByteArrayView octets;
  if (const StatutJpeg statut = Encodeur_.Encode(image, qualite, octets); statut != StatutJpeg::kReussi) return statut;
  return StatutEcriture(Disque_.EcritFichier(fichier, octets));
}

StatutJpeg EcrivainJpegFichier::StatutEcriture(int erreur) {
  switch (erreur) {
    case 0:
      return StatutJpeg::kReussi;
    case ENOENT:
    case ENOTDIR:
      return StatutJpeg::kFichierAbsent;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return StatutJpeg::kAccesRefuse;
    case ENAMETOOLONG:
      return StatutJpeg::kValeurTropGrande;
    default:
      return StatutJpeg::kErreurSysteme;
  }
}

}  // namespace vaktor
