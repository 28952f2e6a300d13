// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/photo_queue.h"

#include <QDir>
#include <algorithm>
#include <utility>

#include "base/photo_format.h"

namespace vaktor {

namespace {

constexpr qint64 kAbandon = 60;  // seconds

bool EstNomPropre(const QString& nom) {
  return std::none_of(nom.begin(), nom.end(),
                      [](QChar signe) { return signe.unicode() < 0x20 || signe == QChar(0x7F); });
}

}  // namespace

QFileInfoList FilePhotos::ListeFichiers() {
  // By time and then by name: photos of one second keep their order.
  QFileInfoList photos = QDir(Dossier_).entryInfoList({u'*' + kFinPhoto}, QDir::Files, QDir::Name);
  photos.removeIf([](const QFileInfo& photo) { return !EstNomPropre(photo.fileName()) || photo.isSymLink(); });
  std::stable_sort(photos.begin(), photos.end(),
                   [](const QFileInfo& a, const QFileInfo& b) { return a.lastModified() < b.lastModified(); });
  QHash<QString, Trouvee> trouvees;
  for (const QFileInfo& photo : std::as_const(photos)) {
    const auto connue = Trouvees_.constFind(photo.fileName());
    const Trouvee trouvee = connue != Trouvees_.cend() ? *connue : Trouvee{++Rangs_, 0};
    trouvees.insert(photo.fileName(), trouvee);
  }
  Trouvees_ = std::move(trouvees);
  std::stable_sort(photos.begin(), photos.end(), [this](const QFileInfo& a, const QFileInfo& b) {
    return Trouvees_.value(a.fileName()).Rang < Trouvees_.value(b.fileName()).Rang;
  });
  return photos;
}

QStringList FilePhotos::Liste() {
  QStringList noms;
  for (const QFileInfo& photo : ListeFichiers()) noms.append(photo.fileName());
  return noms;
}

qsizetype FilePhotos::Elague() {
  const QFileInfoList photos = ListeFichiers();
  qint64 octets = 0;
  for (const QFileInfo& photo : photos) octets += photo.size();
  qsizetype retires = 0;
  while (retires < photos.size() && (octets > Bornes_.Octets || photos.size() - retires > Bornes_.Nombre)) {
    octets -= photos[retires].size();
    QFile::remove(photos[retires].filePath());
    ++retires;
  }
  return retires;
}

void FilePhotos::Recule(qint64 millisecondes) {
  for (Trouvee& trouvee : Trouvees_) trouvee.Recul += millisecondes;
}

QDateTime FilePhotos::DonnePrise(const QString& nom) const { return QFileInfo(Chemin(nom)).lastModified(); }

bool FilePhotos::EstAbandonne(const QString& nom, const QDateTime& maintenant) const {
  // A time in the future is one of before the clock was set back: what is being written now has the time of now.
  return qAbs(DonnePrise(nom).secsTo(maintenant)) > kAbandon;
}

void FilePhotos::Retire(const QString& nom) const { QFile::remove(Chemin(nom)); }

}  // namespace vaktor
