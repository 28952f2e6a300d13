// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/face/art_images.h"

#include <QIconEngine>
#include <QPainter>
#include <algorithm>
#include <array>

// A static library's resources are dropped by the linker unless something asks for them. The macro must stand outside
// any namespace.
static void PrepareRessources() { Q_INIT_RESOURCE(face); }

namespace vaktor {

namespace {

// Each size is read when it is asked for, which is when a window is made. An icon made of files would keep all of them
// decoded for the whole run.
class IconeRessource : public QIconEngine {
 public:
  QPixmap pixmap(const QSize& taille, QIcon::Mode, QIcon::State) override {
    const int voulu = std::min(taille.width(), taille.height());
    const QImage image(QStringLiteral(":/icon/vaktor_%1.png").arg(TrouveCote(voulu)));
    if (voulu <= 0) return {};
    if (image.width() <= voulu) return QPixmap::fromImage(image);
    return QPixmap::fromImage(image.scaled(voulu, voulu, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  }

  void paint(QPainter* peintre, const QRect& place, QIcon::Mode mode, QIcon::State etat) override {
    const int cote = std::min(place.width(), place.height());
    QRect carre(0, 0, cote, cote);
    carre.moveCenter(place.center());
    peintre->setRenderHint(QPainter::SmoothPixmapTransform);
    peintre->drawPixmap(carre, pixmap(carre.size() * peintre->device()->devicePixelRatioF(), mode, etat));
  }

  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
    QList<QSize> tailles;
    for (const int cote : kCotes) tailles.append(QSize(cote, cote));
    return tailles;
  }

  QIconEngine* clone() const override { return new IconeRessource(*this); }

 private:
  static constexpr std::array kCotes = {16, 24, 32, 48, 64, 128, 256};

  // The next larger size, which is then made smaller, as icons made of files do.
  static int TrouveCote(int voulu) {
    const auto* cote = std::lower_bound(kCotes.begin(), kCotes.end(), voulu);
    return cote == kCotes.end() ? kCotes.back() : *cote;
  }
};

}  // namespace

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

QImage ChargeSigne(const QString& nom, int echelle) {
  PrepareRessources();
  const QImage image(QStringLiteral(":/art/%1x/%2.png").arg(echelle).arg(nom));
  return image.isNull() ? QImage() : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QIcon ChargeIcone() {
  PrepareRessources();
  return QIcon(new IconeRessource);
}

}  // namespace vaktor
