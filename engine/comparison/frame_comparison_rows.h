// SPDX-License-Identifier: GPL-3.0-or-later
// Inside of the comparison: the rows of a band with vectors, as all instruction sets have it in common.
//
// Included by one source for each instruction set, which defines VAKTOR_CIBLE before it: the attribute that lets the
// compiler use these instructions. A switch for the whole source would do it for the inline functions of the libraries
// too, and the linker might give those to processors that do not know the instructions.
//
// Such a source gives a template `Jeu<pas>`, for samples that lie `pas` pixels apart in memory (kPasVecteurs, or 1
// where a frame holds its samples only), with
//   Jeu(tolerance)
//   Groupe(pixel, entree)       compares and stores sixteen samples; gives a byte for each in the order of the scan,
//                               all ones where the sample has changed
//   Fin(pixel, entree, nombre)  the same for 1 to 16 samples at the end of a row: reads no pixel behind the last one,
//                               changes no entry behind it, and gives 0 there
//
// In steps of three, sixteen samples lie on three cache lines of the frame and on one of the table.
#pragma once

#include <emmintrin.h>

#include <array>

#include "engine/comparison/frame_comparison_bands.h"

#define VAKTOR_DEDANS VAKTOR_CIBLE __attribute__((always_inline)) inline

namespace vaktor {
namespace {

/// The step that the forms with vectors are written for: they know in which lanes its samples lie.
constexpr qint32 kPasVecteurs = 3;

/// Bytes from one sample to the next.
template <qint32 pas>
constexpr qsizetype kOctetsEchantillon = qsizetype{4} * pas;
constexpr qsizetype kLigneCache = 64;

using MasquesLigne = std::array<quint16, kGroupesMax>;

/// A bit for each changed sample.
VAKTOR_DEDANS quint16 Masque(__m128i changes) { return static_cast<quint16>(_mm_movemask_epi8(changes)); }

/// The sum of sixteen bytes.
VAKTOR_DEDANS qint32 Somme(__m128i octets) {
  const __m128i moities = _mm_sad_epu8(octets, _mm_setzero_si128());
  return _mm_extract_epi16(moities, 0) + _mm_extract_epi16(moities, 4);
}

/// Where the next row is found from the present one, in bytes of the frame and in entries of the table.
struct PasLigne {
  qsizetype Pixels, Entrees;
};

/// Fetches for the next row what `echantillons` samples lie on, and no line more. A frame fresh from the camera is in
/// no cache, and the processor does not foresee the two rows that are left out. The table is in some cache, but seldom
/// in the first.
template <qint32 pas>
VAKTOR_DEDANS void Anticipe(const uchar* pixel, const qint32* entree, qint32 echantillons) {
  const qsizetype dernier = (echantillons - 1) * kOctetsEchantillon<pas>;
  for (qsizetype octet = 0; octet <= dernier; octet += kLigneCache) _mm_prefetch(pixel + octet, _MM_HINT_T0);
  _mm_prefetch(entree, _MM_HINT_T0);
}

/// The samples of one row that lie in the picture. Gives the number of changed ones. It is counted in bytes, one for
/// each of sixteen lanes: a row has less than 256 groups.
template <qint32 pas, typename Jeu>
VAKTOR_DEDANS qint32 CompareDedans(const Jeu& jeu, PartageLigne partage, const uchar* pixel, qint32* entree,
                                   PasLigne suivante, MasquesLigne& masques) {
  __m128i comptes = _mm_setzero_si128();
  quint16* masque = masques.data();
  for (qint32 i = 0; i < partage.Groupes; ++i) {
    Anticipe<pas>(pixel + suivante.Pixels, entree + suivante.Entrees, kGroupe);
    const __m128i changes = jeu.Groupe(pixel, entree);
    comptes = _mm_sub_epi8(comptes, changes);
    *masque++ = Masque(changes);
    pixel += kGroupe * kOctetsEchantillon<pas>;
    entree += kGroupe;
  }
  if (partage.Reste > 0) {
    Anticipe<pas>(pixel + suivante.Pixels, entree + suivante.Entrees, partage.Reste);
    const __m128i changes = jeu.Fin(pixel, entree, partage.Reste);
    comptes = _mm_sub_epi8(comptes, changes);
    *masque = Masque(changes);
  }
  return Somme(comptes);
}

template <template <qint32> typename Jeu, qint32 pas>
VAKTOR_CIBLE void CompareLignes(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul) {
  const Jeu<pas> jeu(tolerance);
  const PartageLigne partage = CalculePartage(bande);
  const std::size_t groupes = static_cast<std::size_t>(partage.Groupes) + (partage.Reste > 0 ? 1 : 0);
  const qint32 colonnes = bande.Avant + bande.Dedans + bande.Apres;
  MasquesLigne masques{};
  for (qint32 i = 0; i < bande.Lignes; ++i) {
    const PasLigne suivante = i + 1 < bande.Lignes ? PasLigne{bande.SautLigne, colonnes} : PasLigne{0, 0};
    const qint32 ligne = bande.PremiereLigne + i;
    qint32* entree = bande.Entrees + qsizetype{i} * colonnes;
    if (bande.Avant > 0) CompareDehors(entree, {0, ligne}, bande.Avant, tolerance, cumul);
    const qint32 changes =
        CompareDedans<pas>(jeu, partage, bande.Pixels + i * bande.SautLigne, entree + bande.Avant, suivante, masques);
    const qint32 fin = bande.Avant + bande.Dedans;
    if (changes > 0) {
      cumul.Changes += changes;
      cumul.CompteLigne(ligne);
      // Rarely so once a few rows of a noisy picture have been seen.
      const bool elargit = bande.Avant < cumul.ColonneMin || fin - 1 > cumul.ColonneMax;
      if (elargit) cumul.CompteMasques(bande.Avant, std::span(masques).first(groupes));
    }
    if (bande.Apres > 0) CompareDehors(entree + fin, {fin, ligne}, bande.Apres, tolerance, cumul);
  }
}

template <template <qint32> typename Jeu>
void CompareBandeParGroupes(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul) {
  if (bande.PasPixels == 1) {
    CompareLignes<Jeu, 1>(bande, tolerance, cumul);
  } else if constexpr (kPasEchantillon == kPasVecteurs) {
    CompareLignes<Jeu, kPasVecteurs>(bande, tolerance, cumul);
  } else {
    CompareBandeSimple(bande, tolerance, cumul, [](qint32, qint32) {});
  }
}

}  // namespace
}  // namespace vaktor
