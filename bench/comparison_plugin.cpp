// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/comparison_plugin.h"

#include "engine/comparison/frame_comparison.h"

void vaktor_compare(const uint8_t* bgrx, ptrdiff_t stride, int width, int height, int32_t* previous, int32_t tolerance,
                    VaktorComparison* out) {
  using namespace vaktor;
  static const JeuInstructions jeu = ChoisitJeu();
  const ZoneDetection zone{.Gauche = 0, .Droite = width - 1, .Haut = 0, .Bas = height - 1};
  const TableEchantillons table{previous, EchantillonsParmi(width) * EchantillonsParmi(height)};
  const ResultatComparaison vu = CompareTrame(jeu, {bgrx, stride, width, height}, zone, tolerance, table, 0);
  out->count = vu.NbrPoints;
  out->x0 = out->y0 = out->x1 = out->y1 = -1;
  if (vu.NbrPoints > 0) {
    out->x0 = vu.Cadre.MinX;
    out->y0 = vu.Cadre.MinY;
    out->x1 = vu.Cadre.MaxX;
    out->y1 = vu.Cadre.MaxY;
  }
}
