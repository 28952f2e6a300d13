// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/contract/intrusion_slate.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

namespace vaktor {
namespace {

constexpr int kVersion = 1;
constexpr int kNombreMax = 1'000'000'000;

// To the millisecond, which Qt::ISODate would drop.
QString EcritMoment(const QDateTime& moment) {
  return moment.toOffsetFromUtc(moment.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

QDateTime LitMomentEcrit(const QJsonValue& valeur) {
  return QDateTime::fromString(valeur.toString(), Qt::ISODateWithMs);
}

int LitNombre(const QJsonValue& valeur) { return std::clamp(valeur.toInt(0), 0, kNombreMax); }

QJsonObject EcritPhoto(const PhotoArdoise& photo) {
  return {
      {QStringLiteral("name"), photo.Nom},
      {QStringLiteral("samples"), photo.Points},
      {QStringLiteral("box"), QJsonArray{photo.Cadre.x(), photo.Cadre.y(), photo.Cadre.width(), photo.Cadre.height()}}};
}

// A name with a folder in it is none of ours.
std::optional<PhotoArdoise> LitPhoto(const QJsonObject& objet) {
  const QString nom = objet.value(QStringLiteral("name")).toString();
  if (nom.isEmpty() || nom.contains(u'/')) return std::nullopt;
  const QJsonArray cadre = objet.value(QStringLiteral("box")).toArray();
  return PhotoArdoise{
      nom, LitNombre(objet.value(QStringLiteral("samples"))),
      QRect(LitNombre(cadre.at(0)), LitNombre(cadre.at(1)), LitNombre(cadre.at(2)), LitNombre(cadre.at(3)))};
}

}  // namespace

QByteArray EcritArdoise(const ArdoiseIntrusion& ardoise) {
  QJsonArray photos;
  for (const PhotoArdoise& photo : ardoise.Photos.first(std::min(ardoise.Photos.size(), kPhotosArdoise)))
    photos.append(EcritPhoto(photo));
  const QJsonObject objet{{QStringLiteral("version"), kVersion},
                          {QStringLiteral("since"), EcritMoment(ardoise.Depuis)},
                          {QStringLiteral("last"), EcritMoment(ardoise.Jusqua)},
                          {QStringLiteral("width"), std::max(0, ardoise.Taille.width())},
                          {QStringLiteral("height"), std::max(0, ardoise.Taille.height())},
                          {QStringLiteral("photos"), photos}};
  return QJsonDocument(objet).toJson(QJsonDocument::Compact);
}

std::optional<ArdoiseIntrusion> LitArdoise(QByteArrayView octets) {
  if (octets.size() > kOctetsArdoise) return std::nullopt;
  const QJsonObject objet = QJsonDocument::fromJson(octets.toByteArray()).object();
  if (objet.value(QStringLiteral("version")).toInt() != kVersion) return std::nullopt;
  ArdoiseIntrusion ardoise;
  ardoise.Depuis = LitMomentEcrit(objet.value(QStringLiteral("since")));
  ardoise.Jusqua = LitMomentEcrit(objet.value(QStringLiteral("last")));
  if (!ardoise.Depuis.isValid() || !ardoise.Jusqua.isValid()) return std::nullopt;
  ardoise.Taille = {LitNombre(objet.value(QStringLiteral("width"))), LitNombre(objet.value(QStringLiteral("height")))};
  const QJsonArray photos = objet.value(QStringLiteral("photos")).toArray();
  for (qsizetype i = 0; i < std::min(photos.size(), kPhotosArdoise); ++i)
    if (const auto photo = LitPhoto(photos.at(i).toObject())) ardoise.Photos.append(*photo);
  std::stable_sort(ardoise.Photos.begin(), ardoise.Photos.end(),
                   [](const PhotoArdoise& a, const PhotoArdoise& b) { return a.Points > b.Points; });
  return ardoise;
}

bool EstDeCetteIntrusion(const ArdoiseIntrusion& ardoise, qint64 instant) {
  constexpr qint64 kAvant = 1000;  // both programs read one clock, each at its own moment
  return instant >= ardoise.Depuis.toMSecsSinceEpoch() - kAvant &&
         instant <= ardoise.Jusqua.toMSecsSinceEpoch() + kReposArdoise;
}

}  // namespace vaktor
