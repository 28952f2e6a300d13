#include "platform/image/jpeg_photo_reader.h"

#include <QFile>
#include <QImageReader>

#include "platform/base/system_files.h"

namespace vaktor {
namespace {

// From the header alone, before any memory is taken.
bool TropGrande(const QSize& taille) { return qint64{taille.width()} * taille.height() > kPixelsPhotoMax; }

}  // namespace

PhotoLue LecteurPhotosFichier::LitPhoto(const QString& chemin) const {
  QFile fichier(CheminNatif(chemin));
  if (!fichier.open(QIODevice::ReadOnly)) return {.Etat = EtatPhoto::kAbsente};
  if (fichier.size() == 0) return {.Etat = EtatPhoto::kVide};
  QImageReader lecteur(&fichier, QByteArrayLiteral("jpeg"));
  const QSize taille = lecteur.size();
  if (!taille.isValid()) return {.Etat = EtatPhoto::kIllisible};
  if (TropGrande(taille)) return {.Etat = EtatPhoto::kTropGrande};
  QImage image = lecteur.read();
  if (image.isNull()) return {.Etat = EtatPhoto::kIllisible};
  // A picture that claims dots an inch or a pixel ratio is shown pixel for pixel like any other.
  image.setDevicePixelRatio(1);
  return {.Etat = EtatPhoto::kLue, .Image = std::move(image)};
}

}  // namespace vaktor
