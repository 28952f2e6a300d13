// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/forms/thumbnail_cache.h"

#include <algorithm>
#include <iterator>

namespace vaktor {

const Vignette* CacheVignettes::Donne(const QString& chemin) {
  const auto trouvee = Cases_.find(chemin);
  if (trouvee == Cases_.end()) return nullptr;
  trouvee->Usage = ++Usage_;
  return &trouvee->Image;
}

void CacheVignettes::Veut(const QStringList& chemins) {
  Voulus_ = chemins;
  DemandeSuivante();
}

void CacheVignettes::ChoisitTaille(const QSize& taille) {
  if (taille == Taille_) return;
  Taille_ = taille;
  Cases_.clear();
  Octets_ = 0;
  EnCours_.clear();
  Lecteur_.Oublie();
}

void CacheVignettes::OublieEchecs() {
  for (auto cas = Cases_.begin(); cas != Cases_.end();)
    cas = cas->Image.Etat != EtatPhoto::kLue ? Cases_.erase(cas) : std::next(cas);
}

// One at a time: what is in sight changes with each turn of the wheel, and what is asked for is decoded to its end.
void CacheVignettes::DemandeSuivante() {
  if (!EnCours_.isEmpty()) return;
  const auto manque = [this](const QString& chemin) { return !Cases_.contains(chemin); };
  const auto suivante = std::find_if(Voulus_.begin(), Voulus_.end(), manque);
  if (suivante == Voulus_.end()) return;
  EnCours_ = *suivante;
  Lecteur_.LitVignette(EnCours_, Taille_,
                       [this, chemin = EnCours_](const Vignette& vignette) { Recoit(chemin, vignette); });
}

void CacheVignettes::Recoit(const QString& chemin, const Vignette& vignette) {
  EnCours_.clear();
  Octets_ += vignette.Image.sizeInBytes();
  Cases_.insert(chemin, {vignette, ++Usage_});
  FaitPlace();
  Arrivee_(chemin);
  DemandeSuivante();
}

// What was not looked at for the longest time goes; what is in sight was looked at when it was painted last.
void CacheVignettes::FaitPlace() {
  while (Octets_ > OctetsMax_ && Cases_.size() > 1) {
    const auto vieille =
        std::min_element(Cases_.begin(), Cases_.end(), [](const Case& a, const Case& b) { return a.Usage < b.Usage; });
    Octets_ -= vieille->Image.Image.sizeInBytes();
    Cases_.erase(vieille);
  }
}

}  // namespace vaktor
