// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/photo_source.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <utility>

#include "base/jpeg_end.h"
#include "base/photo_format.h"
#include "base/photo_name.h"

namespace vaktor {

namespace {

constexpr qint64 kJourMs = 24LL * 3600 * 1000;
/// A photo has its name before it is written, and the name has whole seconds.
constexpr qint64 kEcritureMs = 10'000;

/// The clock of a network disk may be minutes off, and its photos would belong to no intrusion. The name has the time
/// of day of the machine that took it; whichever of both is nearer counts.
qint64 DonneInstant(const QFileInfo& photo, qint64 pres) {
  const qint64 change = photo.lastModified().toMSecsSinceEpoch();
  const std::optional<NomPhoto> nom = LitNomPhoto(photo.fileName());
  if (!nom) return change;
  qint64 ecart = photo.lastModified().time().msecsTo(nom->Heure);
  if (ecart > kJourMs / 2) ecart -= kJourMs;
  if (ecart < -kJourMs / 2) ecart += kJourMs;
  return qAbs(change + ecart - pres) + kEcritureMs < qAbs(change - pres) ? change + ecart : change;
}

}  // namespace

QList<PhotoConnue> ListePhotos(const QString& dossier, qint64 pres) {
  QList<PhotoConnue> photos;
  QDirIterator fichiers(dossier, {u'*' + kFinPhoto}, QDir::Files);
  while (fichiers.hasNext()) {
    fichiers.next();
    const QFileInfo info = fichiers.fileInfo();
    photos.append({info.filePath(), DonneInstant(info, pres), info.size()});
  }
  return photos;
}

namespace {

class Choix {
 public:
  Choix(int nombre, qint64 octetsMax, const QStringList& sauf) : Nombre_(nombre), Reste_(octetsMax), Sauf_(sauf) {}

  bool EstPlein() const { return Choix_.Photos.size() >= Nombre_; }
  /// True when it is one of them now.
  bool Prend(const PhotoConnue& photo) {
    const QString nom = NomDe(photo);
    if (EstPlein() || photo.Octets > Reste_ || Sauf_.contains(nom)) return false;
    QFile fichier(photo.Chemin);
    if (!fichier.open(QIODevice::ReadOnly)) return false;
    const QByteArray contenu = fichier.read(Reste_ + 1);  // it may have grown since it was listed
    if (contenu.size() > Reste_ || !EstJpegEntier(contenu)) return false;
    Reste_ -= contenu.size();
    Choix_.Photos.append(photo);
    Choix_.Pieces.append({nom, contenu});
    return true;
  }
  void PrendTete(const QList<PhotoConnue>& photos, const QStringList& enTete) {
    for (const QString& nom : enTete) {
      const auto photo =
          std::find_if(photos.begin(), photos.end(), [&](const PhotoConnue& p) { return NomDe(p) == nom; });
      if (photo == photos.end() || !Prend(*photo)) continue;
      Choix_.Tete = nom;
      return;
    }
  }
  void PrendReste(const QList<PhotoConnue>& photos) {
    for (const PhotoConnue& photo : photos) {
      if (EstPlein()) return;
      if (Choix_.Tete.isEmpty() || NomDe(photo) != Choix_.Tete) Prend(photo);
    }
  }
  ChoixPhotos Donne() { return std::move(Choix_); }

 private:
  static QString NomDe(const PhotoConnue& photo) { return photo.Chemin.mid(photo.Chemin.lastIndexOf(u'/') + 1); }

  const int Nombre_;
  qint64 Reste_;
  const QStringList& Sauf_;
  ChoixPhotos Choix_;
};

}  // namespace

ChoixPhotos PrendPhotos(const QString& dossier, qint64 intrusion, int nombre, qint64 octetsMax, const QStringList& sauf,
                        const QStringList& enTete) {
  if (nombre <= 0) return {};
  Choix choix(nombre, octetsMax, sauf);
  const QList<PhotoConnue> photos = ListePhotos(dossier, intrusion);
  choix.PrendTete(photos, enTete);
  choix.PrendReste(ClassePhotos(photos, intrusion));
  return choix.Donne();
}

std::optional<ChoixPhotos> LecteurPhotos::Prend(const QString& dossier, qint64 intrusion, int nombre, qint64 octetsMax,
                                                const QStringList& sauf, const QStringList& enTete) {
  return Demande<ChoixPhotos>([=] { return PrendPhotos(dossier, intrusion, nombre, octetsMax, sauf, enTete); });
}

}  // namespace vaktor
