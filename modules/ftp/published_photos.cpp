// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/published_photos.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>

#include "platform/store/bounded_file.h"

namespace vaktor {

namespace {
constexpr qint64 kTailleMax = 4LL * 1024 * 1024;  // a thousand names of the longest kind
}

PhotosPubliees::PhotosPubliees(QString fichier) : Fichier_(std::move(fichier)) { Lit(); }

void PhotosPubliees::ChoisitSite(const QString& site) {
  if (site == Site_) return;
  Site_ = site;
  Photos_.clear();
  Page_ = false;
  Ecrit();
}

void PhotosPubliees::Ajoute(const PhotoPubliee& photo) {
  Photos_.removeIf([&](const PhotoPubliee& connue) { return connue.Nom == photo.Nom; });
  const qsizetype place = Place(photo.Prise);
  Photos_.insert(place, photo);
  if (Photos_.size() > kMax) Photos_.resize(kMax);
  Ecrit();
}

bool PhotosPubliees::Retire(const QString& nom) {
  if (Photos_.removeIf([&](const PhotoPubliee& connue) { return connue.Nom == nom; }) == 0) return false;
  Ecrit();
  return true;
}

// By halves: thousands of photos that waited for a server are asked about, each against a thousand.
qsizetype PhotosPubliees::Place(const QDateTime& prise) const {
  const auto place = std::partition_point(Photos_.begin(), Photos_.end(),
                                          [&](const PhotoPubliee& autre) { return autre.Prise > prise; });
  return place - Photos_.begin();
}

bool PhotosPubliees::EstProche(const QDateTime& prise) const {
  const qsizetype place = Place(prise);
  const auto proche = [&](qsizetype i) {
    return i >= 0 && i < Photos_.size() && qAbs(Photos_[i].Prise.msecsTo(prise)) < kSeconde;
  };
  return proche(place) || proche(place - 1);
}

void PhotosPubliees::NotePage() {
  if (Page_) return;
  Page_ = true;
  Ecrit();
}

void PhotosPubliees::Lit() {
  QByteArray octets;
  if (LitFichierBorne(Fichier_, kTailleMax, octets) != 0) return;
  const QJsonObject objet = QJsonDocument::fromJson(octets).object();
  Site_ = objet[QLatin1String("site")].toString();
  Page_ = objet[QLatin1String("page")].toBool();
  const QJsonArray photos = objet[QLatin1String("photos")].toArray();
  for (const auto& valeur : photos) {
    const QJsonObject photo = valeur.toObject();
    const PhotoPubliee lue{photo[QLatin1String("name")].toString(),
                           QDateTime::fromString(photo[QLatin1String("taken")].toString(), Qt::ISODate)};
    if (!lue.Nom.isEmpty() && lue.Prise.isValid() && Photos_.size() < kMax) Photos_.append(lue);
  }
  std::stable_sort(Photos_.begin(), Photos_.end(),
                   [](const PhotoPubliee& a, const PhotoPubliee& b) { return a.Prise > b.Prise; });
}

void PhotosPubliees::Ecrit() const {
  QJsonArray photos;
  for (const PhotoPubliee& photo : Photos_)
    photos.append(QJsonObject{{QStringLiteral("name"), photo.Nom},
                              {QStringLiteral("taken"), photo.Prise.toString(Qt::ISODateWithMs)}});
  const QJsonObject objet{
      {QStringLiteral("site"), Site_}, {QStringLiteral("page"), Page_}, {QStringLiteral("photos"), photos}};
  QSaveFile fichier(Fichier_);
  if (!fichier.open(QIODevice::WriteOnly)) return;
  fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  fichier.write(QJsonDocument(objet).toJson(QJsonDocument::Compact));
  fichier.commit();
}

}  // namespace vaktor
