// The comparison with AVX2: eight samples at a time.
//
// Eight samples are 24 pixels, three vectors. Sample k of a block lies in lane 3k mod 8 of one of them, so no two
// samples claim the same lane: two blends bring all eight into one vector, one shuffle turns the bytes into
// 0x00BBGGRR, and one permutation puts them into the order of the scan, which is the order of the table.
//
// The box needs no branch either: the lanes of unchanged samples are set to all ones, which an unsigned minimum and a
// signed maximum of the column numbers both pass over.
#include "engine/frame_comparison_bands.h"

#if defined(__x86_64__)

#include <immintrin.h>

#include <algorithm>

#define VAKTOR_AVX2 __attribute__((target("avx2")))
#define VAKTOR_AVX2_DEDANS __attribute__((target("avx2"), always_inline)) inline

namespace vaktor {
namespace {

constexpr qint32 kVoies = 8;
constexpr qint32 kPixelsBloc = kVoies * kPasEchantillon;
constexpr qsizetype kOctetsBloc = 4 * kPixelsBloc;
static_assert(kPasEchantillon == 3, "the blends know which lanes the samples lie in");
static_assert(TableEchantillons::kMarge >= kVoies);

VAKTOR_AVX2_DEDANS __m256i Charge(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i_u*>(p)); }
/// Reads only the lanes of `masque`; the others may lie in no memory at all.
VAKTOR_AVX2_DEDANS __m256i ChargePartiel(const void* p, __m256i masque) {
  return _mm256_maskload_epi32(static_cast<const int*>(p), masque);
}
VAKTOR_AVX2_DEDANS void Range(void* p, __m256i v) { _mm256_storeu_si256(static_cast<__m256i_u*>(p), v); }
VAKTOR_AVX2_DEDANS __m256i Numeros() { return _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7); }

/// The samples of three vectors of pixels, as colours, in the order of the scan.
VAKTOR_AVX2_DEDANS __m256i Rassemble(__m256i a, __m256i b, __m256i c) {
  const __m256i octets = _mm256_setr_epi8(2, 1, 0, -1, 6, 5, 4, -1, 10, 9, 8, -1, 14, 13, 12, -1,  //
                                          2, 1, 0, -1, 6, 5, 4, -1, 10, 9, 8, -1, 14, 13, 12, -1);
  const __m256i ordre = _mm256_setr_epi32(0, 3, 6, 1, 4, 7, 2, 5);
  const __m256i pixels = _mm256_blend_epi32(_mm256_blend_epi32(a, b, 0x92), c, 0x24);
  return _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(pixels, octets), ordre);
}

struct Etat {
  __m256i Limite;     // tolerance + 1
  __m256i Inchanges;  // minus the number of unchanged samples, lane by lane
  __m256i Min, Max;   // columns of changed samples

  VAKTOR_AVX2_DEDANS void Juge(__m256i inchange, __m256i colonnes) {
    const __m256i marque = _mm256_or_si256(colonnes, inchange);
    Inchanges = _mm256_add_epi32(Inchanges, inchange);
    Min = _mm256_min_epu32(Min, marque);
    Max = _mm256_max_epi32(Max, marque);
  }
  VAKTOR_AVX2_DEDANS __m256i Compare(__m256i couleurs, __m256i anciennes) const {
    return _mm256_cmpgt_epi32(Limite, _mm256_abs_epi32(_mm256_sub_epi32(couleurs, anciennes)));
  }
  VAKTOR_AVX2_DEDANS void Bloc(__m256i couleurs, qint32* entree, __m256i colonnes) {
    const __m256i inchange = Compare(couleurs, Charge(entree));
    Range(entree, couleurs);
    Juge(inchange, colonnes);
  }
  /// The first `actifs` lanes only; the entries behind them keep their values.
  VAKTOR_AVX2_DEDANS void BlocPartiel(__m256i couleurs, qint32* entree, qint32 colonne, qint32 actifs) {
    const __m256i actif = _mm256_cmpgt_epi32(_mm256_set1_epi32(actifs), Numeros());
    const __m256i anciennes = Charge(entree);
    const __m256i inchange = _mm256_or_si256(Compare(couleurs, anciennes), _mm256_xor_si256(actif, Uns()));
    Range(entree, _mm256_blendv_epi8(anciennes, couleurs, actif));
    Juge(inchange, _mm256_add_epi32(_mm256_set1_epi32(colonne), Numeros()));
  }
  VAKTOR_AVX2_DEDANS static __m256i Uns() { return _mm256_set1_epi32(-1); }
};

/// `nombre` samples outside the picture: their colour is -1. Gives the number of blocks.
VAKTOR_AVX2_DEDANS qint32 CompareDehors(Etat& etat, qint32* entree, qint32 colonne, qint32 nombre) {
  qint32 blocs = 0;
  for (; nombre > 0; nombre -= kVoies, entree += kVoies, colonne += kVoies, ++blocs) {
    etat.BlocPartiel(Etat::Uns(), entree, colonne, nombre);
  }
  return blocs;
}

/// The last samples of a row in the picture, fewer pixels than a block may read, and behind them, as far as the lanes
/// go, the first ones right of it.
VAKTOR_AVX2_DEDANS void CompareFin(Etat& etat, const uchar* pixel, qint32* entree, qint32 colonne, qint32 dedans,
                                   qint32 actifs) {
  const __m256i lisibles = _mm256_set1_epi32(kPasEchantillon * (dedans - 1) + 1);
  const __m256i huit = _mm256_set1_epi32(kVoies);
  const __m256i n0 = Numeros();
  const __m256i n1 = _mm256_add_epi32(n0, huit);
  const __m256i n2 = _mm256_add_epi32(n1, huit);
  const __m256i couleurs = Rassemble(ChargePartiel(pixel, _mm256_cmpgt_epi32(lisibles, n0)),
                                     ChargePartiel(pixel + 32, _mm256_cmpgt_epi32(lisibles, n1)),
                                     ChargePartiel(pixel + 64, _mm256_cmpgt_epi32(lisibles, n2)));
  const __m256i dehors = _mm256_cmpgt_epi32(n0, _mm256_set1_epi32(dedans - 1));
  etat.BlocPartiel(_mm256_or_si256(couleurs, dehors), entree, colonne, actifs);
}

/// One row. Gives the number of blocks, for the count. The row that comes next is fetched while this one is compared:
/// a frame fresh from the camera is in no cache, and the processor does not foresee the two rows that are left out.
VAKTOR_AVX2_DEDANS qint32 CompareLigne(Etat& etat, const BandeEchantillons& bande, const PartageLigne& partage,
                                       const uchar* pixel, qsizetype avance, qint32* entree) {
  const __m256i huit = _mm256_set1_epi32(kVoies);
  qint32 blocs = CompareDehors(etat, entree, 0, bande.Avant);
  entree += bande.Avant;
  __m256i colonnes = _mm256_add_epi32(_mm256_set1_epi32(bande.Avant), Numeros());
  for (qint32 i = 0; i < partage.Pleins; ++i) {
    _mm_prefetch(pixel + avance, _MM_HINT_T0);
    _mm_prefetch(pixel + avance + 64, _MM_HINT_T0);
    etat.Bloc(Rassemble(Charge(pixel), Charge(pixel + 32), Charge(pixel + 64)), entree, colonnes);
    colonnes = _mm256_add_epi32(colonnes, huit);
    pixel += kOctetsBloc;
    entree += kVoies;
  }
  qint32 colonne = bande.Avant + kVoies * partage.Pleins;
  if (partage.FinActifs > 0) {
    _mm_prefetch(pixel + avance, _MM_HINT_T0);
    CompareFin(etat, pixel, entree, colonne, partage.FinDedans, partage.FinActifs);
    ++blocs;
  }
  colonne += partage.FinActifs;
  entree += partage.FinActifs;
  return blocs + partage.Pleins + CompareDehors(etat, entree, colonne, partage.ResteDehors);
}

VAKTOR_AVX2 void RendCumul(const Etat& etat, qint64 blocs, CumulBande& cumul) {
  std::array<qint32, kVoies> inchanges{}, minima{}, maxima{};
  Range(inchanges.data(), etat.Inchanges);
  Range(minima.data(), etat.Min);
  Range(maxima.data(), etat.Max);
  AjouteVoies(cumul, blocs * kVoies, inchanges, minima, maxima);
}

}  // namespace

VAKTOR_AVX2 void CompareBandeAvx2(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul) {
  // No colour differs from another by more than this, so a greater tolerance says the same.
  constexpr qint32 kEcartMax = 0x1000000;
  Etat etat{_mm256_set1_epi32(std::clamp(tolerance, -1, kEcartMax) + 1), _mm256_setzero_si256(), Etat::Uns(),
            Etat::Uns()};
  const PartageLigne partage = CalculePartage(bande, kVoies);
  const qint32 colonnes = bande.Avant + bande.Dedans + bande.Apres;
  qint64 blocs = 0;
  for (qint32 ligne = 0; ligne < bande.Lignes; ++ligne) {
    const __m256i avant = etat.Inchanges;
    const qsizetype avance = ligne + 1 < bande.Lignes ? bande.SautLigne : 0;
    const qint32 blocsLigne = CompareLigne(etat, bande, partage, bande.Pixels + ligne * bande.SautLigne, avance,
                                           bande.Entrees + qsizetype{ligne} * colonnes);
    blocs += blocsLigne;
    // Every lane of every block unchanged is what a still row leaves behind.
    const __m256i immobile = _mm256_sub_epi32(avant, _mm256_set1_epi32(blocsLigne));
    if (_mm256_movemask_epi8(_mm256_cmpeq_epi32(immobile, etat.Inchanges)) != -1) {
      cumul.CompteLigne(bande.PremiereLigne + ligne);
    }
  }
  RendCumul(etat, blocs, cumul);
}

}  // namespace vaktor

#endif
