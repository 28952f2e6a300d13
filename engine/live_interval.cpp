// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/live_interval.h"

#include <cmath>

#include "engine/limits.h"

namespace vaktor {

float IntervalleLive::LitSecondes(const QString& texte) {
  if (texte != Texte_) {
    Texte_ = texte;
    QString nombre = texte.trimmed();
    nombre.replace(u',', u'.');
    Secondes_ = nombre.toFloat(&Lisible_);
    Lisible_ = Lisible_ && std::isfinite(Secondes_);
  }
  if (!Lisible_) LanceIntervalleIllisible();
  return Secondes_;
}

}  // namespace vaktor
