// SPDX-License-Identifier: GPL-3.0-or-later
// The comparison written the obvious way, as the judge of the fast one.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "engine/comparison/frame_comparison.h"

namespace vaktor::faux {

/// Sample by sample over 64-bit numbers, with a table of its own shape: a plain vector, first rank given.
inline ResultatComparaison CompareNaivement(const TrameBrute& trame, const ZoneDetection& zone, qint32 tolerance,
                                            std::vector<qint32>& table, qint32 premierRang) {
  ResultatComparaison resultat;
  std::size_t rang = static_cast<std::size_t>(premierRang);
  for (qint64 y = zone.Haut; y <= zone.Bas; y += kPasEchantillon) {
    for (qint64 x = zone.Gauche; x <= zone.Droite; x += kPasEchantillon) {
      if (rang >= table.size()) {
        resultat.TablePleine = true;
        return resultat;
      }
      qint64 couleur = -1;
      if (x >= 0 && x < trame.Largeur && y >= 0 && y < trame.Hauteur) {
        const uchar* pixel = trame.Bits + y * trame.OctetsParLigne + 4 * x;
        couleur = pixel[0] * 65536 + pixel[1] * 256 + pixel[2];
      }
      const qint64 ancienne = table[rang];
      const bool inchange = couleur <= ancienne + tolerance && couleur >= ancienne - tolerance;
      if (!inchange) {
        CadreMouvement& cadre = resultat.Cadre;
        if (resultat.NbrPoints++ == 0) {
          cadre = {.MinX = static_cast<qint32>(x),
                   .MaxX = static_cast<qint32>(x),
                   .MinY = static_cast<qint32>(y),
                   .MaxY = static_cast<qint32>(y)};
        }
        if (x < cadre.MinX) cadre.MinX = static_cast<qint32>(x);
        if (x > cadre.MaxX) cadre.MaxX = static_cast<qint32>(x);
        if (y < cadre.MinY) cadre.MinY = static_cast<qint32>(y);
        if (y > cadre.MaxY) cadre.MaxY = static_cast<qint32>(y);
      }
      table[rang++] = static_cast<qint32>(couleur);
      ++resultat.Echantillons;
    }
  }
  return resultat;
}

/// The box means nothing where nothing has changed.
inline void AttendMemeResultat(const ResultatComparaison& vu, const ResultatComparaison& juge) {
  EXPECT_EQ(vu.NbrPoints, juge.NbrPoints);
  EXPECT_EQ(vu.Echantillons, juge.Echantillons);
  EXPECT_EQ(vu.TablePleine, juge.TablePleine);
  if (juge.NbrPoints == 0) return;
  EXPECT_EQ(vu.Cadre.MinX, juge.Cadre.MinX);
  EXPECT_EQ(vu.Cadre.MaxX, juge.Cadre.MaxX);
  EXPECT_EQ(vu.Cadre.MinY, juge.Cadre.MinY);
  EXPECT_EQ(vu.Cadre.MaxY, juge.Cadre.MaxY);
}

}  // namespace vaktor::faux
