// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/journal/film_photo.h"

#include <turbojpeg.h>

#include <QFile>
#include <memory>

#include "base/jpeg_end.h"
#include "platform/base/system_files.h"

namespace vaktor {
namespace {

struct LiberePoignee {
  void operator()(void* poignee) const { tjDestroy(poignee); }
};

}  // namespace

QSize MesurePhotoDuFilm(QByteArrayView octets) {
  const std::unique_ptr<void, LiberePoignee> decodeur(tjInitDecompress());
  if (!decodeur || FinJpeg(octets) < 0) return {};
  int largeur = 0, hauteur = 0, sousEchantillons = 0, couleurs = 0;
  if (tjDecompressHeader3(decodeur.get(), reinterpret_cast<const unsigned char*>(octets.data()),
                          static_cast<unsigned long>(octets.size()), &largeur, &hauteur, &sousEchantillons,
                          &couleurs) != 0)
    return {};
  return qint64{largeur} * hauteur > kPixelsFilmMax ? QSize() : QSize(largeur, hauteur);
}

PhotoDuFilm LitPhotoDuFilm(const QString& chemin) {
  QFile fichier(CheminNatif(chemin));
  if (!fichier.open(QIODevice::ReadOnly) || fichier.size() > kPhotoFilmMax) return {};
  PhotoDuFilm photo{fichier.read(kPhotoFilmMax + 1), {}};  // it may have grown since
  if (photo.Octets.size() <= kPhotoFilmMax) photo.Taille = MesurePhotoDuFilm(photo.Octets);
  return photo;
}

}  // namespace vaktor
