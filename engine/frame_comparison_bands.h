// Inside of the comparison: the scan is cut into bands of rows that are alike, so that the loops that run over them
// know for a whole band which columns lie in the picture. Included by the comparison's own sources only.
#pragma once

#include <array>
#include <cstring>
#include <limits>
#include <span>

#include "engine/frame_comparison.h"

namespace vaktor {

/// Rows with the same split of their columns: Avant samples left of the picture, Dedans in it, Apres right of it.
struct BandeEchantillons {
  const uchar* Pixels = nullptr;  ///< first sample inside the picture, first row; null when Dedans is 0
  qsizetype SautLigne = 0;        ///< bytes from one sampled row to the next
  qint32 PixelsLisibles = 0;      ///< pixels from Pixels to the end of its row
  qint32 PremiereLigne = 0;       ///< number of the first row in the scan
  qint32 Lignes = 0;
  qint32 Avant = 0, Dedans = 0, Apres = 0;
  qint32* Entrees = nullptr;  ///< the table's entry of the first sample
};

struct DecoupeBalayage {
  std::array<BandeEchantillons, 4> Bandes;
  qint32 Nombre = 0;
  qint32 Echantillons = 0;
  bool TablePleine = false;
};

/// Count and box of the changed samples, the box in numbers of columns and rows of the scan.
struct CumulBande {
  qint32 Changes = 0;
  qint32 ColonneMin = std::numeric_limits<qint32>::max(), ColonneMax = -1;
  qint32 LigneMin = std::numeric_limits<qint32>::max(), LigneMax = -1;

  void CompteLigne(qint32 ligne) {
    if (ligne < LigneMin) LigneMin = ligne;
    if (ligne > LigneMax) LigneMax = ligne;
  }
  void CompteColonnes(qint32 premiere, qint32 derniere) {
    if (premiere < ColonneMin) ColonneMin = premiere;
    if (derniere > ColonneMax) ColonneMax = derniere;
  }
};

DecoupeBalayage CoupeBalayage(const TrameBrute& trame, const ZoneDetection& zone, const TableEchantillons& table,
                              qint32 premierRang);
ResultatComparaison DonneResultat(const DecoupeBalayage& decoupe, const CumulBande& cumul, const ZoneDetection& zone);

inline qint32 LitCouleur(const uchar* pixel) {
  return (qint32{pixel[0]} << 16) | (qint32{pixel[1]} << 8) | qint32{pixel[2]};
}

/// One band, sample by sample. `marque(colonne, ligne)` is called for each changed sample before it is stored.
template <typename Marque>
void CompareBandeSimple(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul, Marque&& marque) {
  const qint32 colonnes = bande.Avant + bande.Dedans + bande.Apres;
  qint32* entree = bande.Entrees;
  for (qint32 ligne = 0; ligne < bande.Lignes; ++ligne) {
    const uchar* pixel = bande.Dedans > 0 ? bande.Pixels + ligne * bande.SautLigne : nullptr;
    for (qint32 colonne = 0; colonne < colonnes; ++colonne, ++entree) {
      qint32 couleur = -1;
      if (colonne >= bande.Avant && colonne < bande.Avant + bande.Dedans) {
        couleur = LitCouleur(pixel);
        pixel += 4 * kPasEchantillon;
      }
      const qint32 ecart = couleur > *entree ? couleur - *entree : *entree - couleur;
      if (ecart > tolerance) {
        ++cumul.Changes;
        cumul.CompteColonnes(colonne, colonne);
        cumul.CompteLigne(bande.PremiereLigne + ligne);
        marque(colonne, bande.PremiereLigne + ligne);
      }
      *entree = couleur;
    }
  }
}

/// The comparison with a word for each changed sample: `marque(x, y)` in pixels, in the order of the scan.
template <typename Marque>
ResultatComparaison CompareEtMarque(const TrameBrute& trame, const ZoneDetection& zone, qint32 tolerance,
                                    const TableEchantillons& table, qint32 premierRang, Marque&& marque) {
  const DecoupeBalayage decoupe = CoupeBalayage(trame, zone, table, premierRang);
  CumulBande cumul;
  for (qint32 i = 0; i < decoupe.Nombre; ++i) {
    CompareBandeSimple(decoupe.Bandes[static_cast<std::size_t>(i)], tolerance, cumul,
                       [&](qint32 colonne, qint32 ligne) {
                         marque(zone.Gauche + kPasEchantillon * colonne, zone.Haut + kPasEchantillon * ligne);
                       });
  }
  return DonneResultat(decoupe, cumul, zone);
}

/// How the samples of one row fall into blocks of `voies` samples; the same for all rows of a band.
struct PartageLigne {
  qint32 Pleins;       ///< whole blocks inside the picture
  qint32 FinDedans;    ///< samples of the last block that are inside
  qint32 FinActifs;    ///< samples of the last block at all: those right of the picture fill its lanes
  qint32 ResteDehors;  ///< samples right of the picture that the last block did not take
};
PartageLigne CalculePartage(const BandeEchantillons& bande, qint32 voies);

/// What a vector loop has at its end, lane by lane: minus the number of unchanged samples, and the least and greatest
/// column of changed ones (all ones where there was none).
void AjouteVoies(CumulBande& cumul, qint64 compares, std::span<const qint32> inchanges, std::span<const qint32> minima,
                 std::span<const qint32> maxima);

#if defined(__x86_64__)
/// The same bands with vectors. Call only on a processor that knows the instructions.
void CompareBandeSse41(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul);
void CompareBandeAvx2(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul);
#endif

}  // namespace vaktor
