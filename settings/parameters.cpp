// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/parameters.h"

#include <array>

namespace vaktor {

void DeduitQualiteJpeg(Parametres& parametres) {
  static constexpr std::array<quint8, 4> kQualites = {100, 50, 20, 10};
  if (parametres.IndexQualite < kQualites.size()) parametres.QualiteJpeg = kQualites[parametres.IndexQualite];
}

}  // namespace vaktor
