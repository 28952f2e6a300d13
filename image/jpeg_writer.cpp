// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/jpeg_writer.h"

#include <cerrno>

namespace vaktor {

namespace {

void VerifieEcriture(int erreur) {
  if (erreur != 0) throw EchecJpeg(EcrivainJpegFichier::StatutEcriture(erreur), erreur);
}

}  // namespace

// English in both languages: nobody is shown this text, it is there for the one who looks for the cause.
EchecJpeg::EchecJpeg(StatutJpeg statut, int erreur)
    : Echec(kAppelIncorrect,
            QStringLiteral("Cannot save the image. GDI+ Error:") + QString::number(static_cast<qint32>(statut))),
      Statut_(statut),
      Erreur_(erreur) {}

void EcrivainJpegFichier::EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) {
  VerifieEcriture(Disque_.EcritFichier(fichier, Encode(image, qualite)));
}

QString EcrivainJpegFichier::EnregistreNouveauJPEG(const QImage& image, const QString& fichier, quint8 qualite) {
  QString devenu;
  VerifieEcriture(Disque_.EcritNouveauFichier(fichier, Encode(image, qualite), &devenu));
  return devenu;
}

// The file is opened only once its bytes are there, so a picture that cannot be encoded leaves an earlier file alone.
QByteArrayView EcrivainJpegFichier::Encode(const QImage& image, quint8 qualite) {
  QByteArrayView octets;
  // The encoder comes first: when it is missing that is the cause to tell, whatever the picture.
  StatutJpeg statut = Encodeur_.Demarre();
  if (statut == StatutJpeg::kReussi) {
    statut = image.isNull() ? StatutJpeg::kParametreInvalide : Encodeur_.Encode(image, qualite, octets);
  }
  if (statut != StatutJpeg::kReussi) throw EchecJpeg(statut, 0);
  return octets;
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
