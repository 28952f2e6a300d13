// SPDX-License-Identifier: GPL-3.0-or-later
// Inside of the comparison: the scan is cut into bands of rows that are alike, so that the loops that run over them
// know for a whole band which columns lie in the picture. Included by the comparison's own sources only.
#pragma once

#include <array>
#include <cstring>
#include <limits>
#include <span>

#include "engine/comparison/frame_comparison.h"

namespace vaktor {

/// Rows with the same split of their columns: Avant samples left of the picture, Dedans in it, Apres right of it.
struct BandeEchantillons {
  const uchar* Pixels = nullptr;       ///< first sample inside the picture, first row; null when Dedans is 0
  qsizetype SautLigne = 0;             ///< bytes from one sampled row to the next
  qint32 PixelsLisibles = 0;           ///< stored pixels from Pixels to the end of its row
  qint32 PasPixels = kPasEchantillon;  ///< stored pixels from one sample to the next: 1 where only samples are
  qint32 PremiereLigne = 0;            ///< number of the first row in the scan
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

/// A sample by its numbers in the scan.
struct PlaceEchantillon {
  qint32 Colonne, Ligne;
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
  void Compte(PlaceEchantillon place) {
    ++Changes;
    CompteColonnes(place.Colonne, place.Colonne);
    CompteLigne(place.Ligne);
  }
  /// Changed samples of one row, at least one: a bit for each sample from `colonne` on, kGroupe of them in each mask.
  void CompteMasques(qint32 colonne, std::span<const quint16> masques);
};

DecoupeBalayage CoupeBalayage(const TrameBrute& trame, const ZoneDetection& zone, const TableEchantillons& table,
                              qint32 premierRang);
ResultatComparaison DonneResultat(const DecoupeBalayage& decoupe, const CumulBande& cumul, const ZoneDetection& zone);

inline qint32 LitCouleur(const uchar* pixel) {
  return (qint32{pixel[0]} << 16) | (qint32{pixel[1]} << 8) | qint32{pixel[2]};
}
inline bool EstChange(qint32 couleur, qint32 ancienne, qint32 tolerance) {
  return (couleur > ancienne ? couleur - ancienne : ancienne - couleur) > tolerance;
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
        Q_ASSERT(pixel != nullptr);  // a column inside: there are some
        couleur = LitCouleur(pixel);
        pixel += qsizetype{4} * bande.PasPixels;
      }
      if (EstChange(couleur, *entree, tolerance)) {
        cumul.Compte({colonne, bande.PremiereLigne + ligne});
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

/// Vectors take the samples of a row that lie in the picture by groups of this many.
constexpr qint32 kGroupe = 16;
/// More groups no row has there: 4080 samples, in steps of three a picture of 12,240 pixels. Wider ones are compared
/// sample by sample.
constexpr qint32 kGroupesMax = 255;

/// How the samples of one row in the picture fall into groups; the same for all rows of a band.
struct PartageLigne {
  qint32 Groupes;  ///< whole ones, whose pixels can all be read
  qint32 Reste;    ///< samples behind them, at most kGroupe
};
PartageLigne CalculePartage(const BandeEchantillons& bande);

/// `nombre` samples of one row outside the picture: their colour is -1.
void CompareDehors(qint32* entree, PlaceEchantillon place, qint32 nombre, qint32 tolerance, CumulBande& cumul);

#if defined(__x86_64__)
/// A band with vectors: some samples in the picture, no more than kGroupesMax groups of them a row. Call only on a
/// processor that knows the instructions.
void CompareBandeSse41(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul);
void CompareBandeAvx2(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul);
#endif

}  // namespace vaktor
