// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/film_pace.h"

#include <algorithm>

#include "base/photo_name.h"

namespace vaktor {

QList<qint64> PlaceFilm(const QStringList& noms) {
  constexpr qint64 kPasInconnuMs = 100;
  constexpr int kJourS = 86'400;
  QList<qint64> instants;
  qint64 seconde = 0;  // since the first photo
  std::optional<NomPhoto> avant;
  for (qsizetype debut = 0; debut < noms.size();) {
    const auto lu = LitNomPhoto(noms.at(debut));
    if (!lu) {
      instants.append(instants.isEmpty() ? 0 : instants.constLast() + kPasInconnuMs);
      ++debut;
      continue;
    }
    qsizetype fin = debut + 1;
    while (fin < noms.size() && LitNomPhoto(noms.at(fin)).value_or(NomPhoto{}).Heure == lu->Heure) ++fin;
    if (avant) seconde += (avant->Heure.secsTo(lu->Heure) + kJourS) % kJourS;  // over midnight
    avant = lu;
    for (qsizetype i = debut; i < fin; ++i) {
      const qint64 voulu = seconde * 1000 + (i - debut) * 1000 / (fin - debut);
      instants.append(instants.isEmpty() ? voulu : std::max(voulu, instants.constLast() + 1));
    }
    debut = fin;
  }
  return instants;
}

void LectureFilm::Bascule() {
  if (!Joue_ && Index_ + 1 >= Nombre()) Va(0);
  Joue_ = !Joue_ && Nombre() > 0;
}

void LectureFilm::Va(qsizetype index) {
  if (Nombre() == 0) return;
  Index_ = std::clamp<qsizetype>(index, 0, Nombre() - 1);
  Position_ = static_cast<double>(Instants_.at(Index_));
}

void LectureFilm::Pas(qsizetype pas) {
  Joue_ = false;
  Va(Index_ + pas);
}

bool LectureFilm::Avance(qint64 millisecondes) {
  if (!Joue_) return false;
  Position_ += static_cast<double>(millisecondes) * Vitesse_;
  const auto apres = std::upper_bound(Instants_.begin(), Instants_.end(), static_cast<qint64>(Position_));
  const qsizetype index = std::max<qsizetype>(0, apres - Instants_.begin() - 1);
  const bool autre = index != Index_;
  Index_ = index;
  if (Index_ + 1 < Nombre() || Position_ < static_cast<double>(Instants_.constLast() + kDerniereMs)) return autre;
  Joue_ = false;
  return true;
}

}  // namespace vaktor
