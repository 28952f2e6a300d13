// Photos that are read from nowhere: pictures by path, and what is wrong with the others.
#pragma once

#include <QHash>
#include <QStringList>

#include "image/ports/photo_reader.h"

namespace vaktor::faux {

/// A path that nobody has told of is a photo of 40 x 30.
class LecteurPhotosFaux : public LecteurPhotos {
 public:
  PhotoLue LitPhoto(const QString& chemin) const override {
    Lues += chemin;
    const EtatPhoto etat = Etats.value(chemin, EtatPhoto::kLue);
    if (etat != EtatPhoto::kLue) return {.Etat = etat};
    QImage image(Tailles.value(chemin, QSize(40, 30)), QImage::Format_RGB32);
    image.fill(Couleurs.value(chemin, qRgb(200, 60, 20)));
    return {.Etat = EtatPhoto::kLue, .Image = image, .Defaut = Defauts.value(chemin, Dommage::kAucun)};
  }

  QHash<QString, EtatPhoto> Etats;
  QHash<QString, Dommage> Defauts;
  QHash<QString, QSize> Tailles;
  QHash<QString, QRgb> Couleurs;
  mutable QStringList Lues;  ///< paths as passed, in order
};

}  // namespace vaktor::faux
