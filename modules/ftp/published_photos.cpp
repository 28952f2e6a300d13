// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/published_photos.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <utility>

namespace vaktor {

namespace {

constexpr qint64 kTailleMax = 4LL * 1024 * 1024;  // a thousand names of the longest kind

// Milliseconds since 1970, by the clock of now.
qint64 DonneRang(const PhotoPubliee& photo) { return photo.Prise.toMSecsSinceEpoch() - photo.Recul; }

}  // namespace

PhotosPubliees::PhotosPubliees(QString fichier) : Memoire_(std::move(fichier), kTailleMax) { Relit(); }

void PhotosPubliees::Relit() {
  const std::optional<QByteArray> octets = Memoire_.Lit();
  if (!octets) return;
  const QString site = std::exchange(Site_, QString());
  const QList<PhotoPubliee> notes = std::exchange(Photos_, {});
  const bool page = std::exchange(Page_, false);
  Comprend(*octets);
  if (site.isEmpty()) return;  // nothing was noted so far
  if (site != Site_) Photos_.clear();
  Page_ = page || (Page_ && site == Site_);
  Site_ = site;
  for (const PhotoPubliee& photo : notes) Insere(photo);
  Ecrit();
}

qint64 PhotosPubliees::Dernier() const { return Photos_.isEmpty() ? 0 : DonneRang(Photos_.first()); }

void PhotosPubliees::Recule(qint64 millisecondes) {
  for (PhotoPubliee& photo : Photos_) photo.Recul += millisecondes;
}

void PhotosPubliees::ChoisitSite(const QString& site) {
  Relit();
  if (site == Site_) return;
  Site_ = site;
  Photos_.clear();
  Page_ = false;
  Ecrit();
}

void PhotosPubliees::Insere(const PhotoPubliee& photo) {
  Photos_.removeIf([&](const PhotoPubliee& connue) { return connue.Nom == photo.Nom; });
  const qsizetype place = Place(DonneRang(photo));
  Photos_.insert(place, photo);
  if (Photos_.size() > kMax) Photos_.resize(kMax);
}

void PhotosPubliees::Ajoute(const PhotoPubliee& photo) {
  Relit();
  Insere(photo);
  Ecrit();
}

bool PhotosPubliees::Retire(const QString& nom) {
  Relit();
  if (Photos_.removeIf([&](const PhotoPubliee& connue) { return connue.Nom == nom; }) == 0) return false;
  Ecrit();
  return true;
}

// By halves: thousands of photos that waited for a server are asked about, each against a thousand.
qsizetype PhotosPubliees::Place(qint64 rang) const {
  const auto place = std::partition_point(Photos_.begin(), Photos_.end(),
                                          [&](const PhotoPubliee& autre) { return DonneRang(autre) > rang; });
  return place - Photos_.begin();
}

bool PhotosPubliees::EstProche(qint64 rang) const {
  const qsizetype place = Place(rang);
  const auto proche = [&](qsizetype i) {
    return i >= 0 && i < Photos_.size() && qAbs(DonneRang(Photos_[i]) - rang) < kSeconde;
  };
  return proche(place) || proche(place - 1);
}

void PhotosPubliees::NotePage() {
  Relit();
  if (Page_) return;
  Page_ = true;
  Ecrit();
}

void PhotosPubliees::Comprend(const QByteArray& octets) {
  const QJsonDocument document = QJsonDocument::fromJson(octets);
  if (!octets.isEmpty() && !document.isObject()) Memoire_.MetDeCote();
  const QJsonObject objet = document.object();
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
  Memoire_.Ecrit(QJsonDocument(objet).toJson(QJsonDocument::Compact));
}

}  // namespace vaktor
