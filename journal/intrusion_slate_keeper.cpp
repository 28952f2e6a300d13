// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/intrusion_slate_keeper.h"

#include <algorithm>

namespace vaktor {

void TeneurArdoise::NoteImage(const QDateTime& quand, qint64 maintenantMs, qint32 points, const QRect& cadre,
                              const QSize& taille) {
  Ardoise_.Jusqua = quand;
  Ardoise_.Taille = taille;
  MaintenantMs_ = maintenantMs;
  Points_ = points;
  Cadre_ = cadre;
}

// Of two as strong the earlier one stands first.
void TeneurArdoise::NotePhoto(const QString& nom) {
  QList<PhotoArdoise>& photos = Ardoise_.Photos;
  const auto place = std::upper_bound(photos.begin(), photos.end(), Points_,
                                      [](qint32 points, const PhotoArdoise& photo) { return points > photo.Points; });
  if (place == photos.end() && photos.size() >= kPhotosArdoise) return;
  if (std::any_of(photos.begin(), place, [&](const PhotoArdoise& photo) { return photo.Nom == nom; })) return;
  photos.insert(place, {nom, Points_, Cadre_});
  if (photos.size() > kPhotosArdoise) photos.removeLast();
  Neuve_ = true;
}

// Its table changes with each of the first photos, and then less and less often.
std::optional<QByteArray> TeneurArdoise::PrendTexte() {
  if (!Neuve_ && MaintenantMs_ - EcriteMs_ < kRythmeMs) return std::nullopt;
  Neuve_ = false;
  EcriteMs_ = MaintenantMs_;
  return EcritArdoise(Ardoise_);
}

}  // namespace vaktor
