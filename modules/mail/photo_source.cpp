// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/photo_source.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include "base/jpeg_end.h"
#include "base/photo_format.h"

namespace vaktor {

QList<PhotoConnue> ListePhotos(const QString& dossier) {
  QList<PhotoConnue> photos;
  QDirIterator fichiers(dossier, {u'*' + kFinPhoto}, QDir::Files);
  while (fichiers.hasNext()) {
    fichiers.next();
    const QFileInfo info = fichiers.fileInfo();
    photos.append({info.filePath(), info.lastModified().toMSecsSinceEpoch(), info.size()});
  }
  return photos;
}

ChoixPhotos PrendPhotos(const QString& dossier, qint64 intrusion, int nombre, qint64 octetsMax,
                        const QStringList& sauf) {
  ChoixPhotos choix;
  if (nombre <= 0) return choix;
  qint64 reste = octetsMax;
  for (const PhotoConnue& photo : ClassePhotos(ListePhotos(dossier), intrusion)) {
    if (choix.Photos.size() >= nombre) break;
    const QString nom = QFileInfo(photo.Chemin).fileName();
    if (photo.Octets > reste || sauf.contains(nom)) continue;
    QFile fichier(photo.Chemin);
    if (!fichier.open(QIODevice::ReadOnly)) continue;
    const QByteArray contenu = fichier.read(reste + 1);  // it may have grown since it was listed
    if (contenu.size() > reste || !EstJpegEntier(contenu)) continue;
    reste -= contenu.size();
    choix.Photos.append(photo);
    choix.Pieces.append({nom, contenu});
  }
  return choix;
}

}  // namespace vaktor
