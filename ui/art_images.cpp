#include "ui/art_images.h"

// A static library's resources are dropped by the linker unless something asks for them. The macro must stand outside
// any namespace.
static void PrepareRessources() { Q_INIT_RESOURCE(face); }

namespace vaktor {

int EchelleArt(double densite) { return densite > 1 ? 2 : 1; }

QImage ChargeArt(const QString& nom, int echelle) {
  PrepareRessources();
  const QImage image(QStringLiteral(":/art/%1x/%2.png").arg(echelle).arg(nom));
  return image.isNull() ? QImage() : image.convertToFormat(QImage::Format_RGB32);
}

QImage ChargeArtOuUni(const QString& nom, int echelle, const QSize& taille, const QColor& couleur) {
  QImage image = ChargeArt(nom, echelle);
  if (!image.isNull()) return image;
  image = QImage(taille * echelle, QImage::Format_RGB32);
  image.fill(couleur);
  return image;
}

QIcon ChargeIcone() {
  PrepareRessources();
  QIcon icone;
  for (const int cote : {16, 24, 32, 48, 64, 128, 256}) {
    icone.addFile(QStringLiteral(":/icon/vaktor_%1.png").arg(cote), QSize(cote, cote));
  }
  return icone;
}

}  // namespace vaktor
