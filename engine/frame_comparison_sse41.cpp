// The comparison with SSE4.1, for processors without AVX2: four samples at a time. The same road as with AVX2: twelve
// pixels are three vectors, sample k lies in lane 3k mod 4, and one shuffle of bytes does the colours and the order.
#include "engine/frame_comparison_bands.h"

#if defined(__x86_64__)

#include <immintrin.h>

#include <algorithm>

#define VAKTOR_SSE41 __attribute__((target("sse4.1")))
#define VAKTOR_SSE41_DEDANS __attribute__((target("sse4.1"), always_inline)) inline

namespace vaktor {
namespace {

constexpr qint32 kVoies = 4;
constexpr qint32 kPixelsBloc = kVoies * kPasEchantillon;
constexpr qsizetype kOctetsBloc = 4 * kPixelsBloc;
static_assert(kPasEchantillon == 3, "the blends know which lanes the samples lie in");
static_assert(TableEchantillons::kMarge >= kVoies);

VAKTOR_SSE41_DEDANS __m128i Charge(const void* p) { return _mm_loadu_si128(static_cast<const __m128i_u*>(p)); }
VAKTOR_SSE41_DEDANS void Range(void* p, __m128i v) { _mm_storeu_si128(static_cast<__m128i_u*>(p), v); }
VAKTOR_SSE41_DEDANS __m128i Numeros() { return _mm_setr_epi32(0, 1, 2, 3); }

/// The samples of twelve pixels, as colours, in the order of the scan.
VAKTOR_SSE41_DEDANS __m128i Rassemble(const uchar* pixel) {
  const __m128i ordre = _mm_setr_epi8(2, 1, 0, -1, 14, 13, 12, -1, 10, 9, 8, -1, 6, 5, 4, -1);
  const __m128i pixels =
      _mm_blend_epi16(_mm_blend_epi16(Charge(pixel), Charge(pixel + 32), 0x0c), Charge(pixel + 16), 0x30);
  return _mm_shuffle_epi8(pixels, ordre);
}

struct Etat {
  __m128i Limite;     // tolerance + 1
  __m128i Inchanges;  // minus the number of unchanged samples, lane by lane
  __m128i Min, Max;   // columns of changed samples

  VAKTOR_SSE41_DEDANS void Juge(__m128i inchange, __m128i colonnes) {
    const __m128i marque = _mm_or_si128(colonnes, inchange);
    Inchanges = _mm_add_epi32(Inchanges, inchange);
    Min = _mm_min_epu32(Min, marque);
    Max = _mm_max_epi32(Max, marque);
  }
  VAKTOR_SSE41_DEDANS __m128i Compare(__m128i couleurs, __m128i anciennes) const {
    return _mm_cmpgt_epi32(Limite, _mm_abs_epi32(_mm_sub_epi32(couleurs, anciennes)));
  }
  VAKTOR_SSE41_DEDANS void Bloc(__m128i couleurs, qint32* entree, __m128i colonnes) {
    const __m128i inchange = Compare(couleurs, Charge(entree));
    Range(entree, couleurs);
    Juge(inchange, colonnes);
  }
  /// The first `actifs` lanes only; the entries behind them keep their values.
  VAKTOR_SSE41_DEDANS void BlocPartiel(__m128i couleurs, qint32* entree, qint32 colonne, qint32 actifs) {
    const __m128i actif = _mm_cmpgt_epi32(_mm_set1_epi32(actifs), Numeros());
    const __m128i anciennes = Charge(entree);
    const __m128i inchange = _mm_or_si128(Compare(couleurs, anciennes), _mm_xor_si128(actif, Uns()));
    Range(entree, _mm_blendv_epi8(anciennes, couleurs, actif));
    Juge(inchange, _mm_add_epi32(_mm_set1_epi32(colonne), Numeros()));
  }
  VAKTOR_SSE41_DEDANS static __m128i Uns() { return _mm_set1_epi32(-1); }
};

/// `nombre` samples outside the picture: their colour is -1. Gives the number of blocks.
VAKTOR_SSE41_DEDANS qint32 CompareDehors(Etat& etat, qint32* entree, qint32 colonne, qint32 nombre) {
  qint32 blocs = 0;
  for (; nombre > 0; nombre -= kVoies, entree += kVoies, colonne += kVoies, ++blocs) {
    etat.BlocPartiel(Etat::Uns(), entree, colonne, nombre);
  }
  return blocs;
}

/// The last samples of a row in the picture, and behind them, as far as the lanes go, the first ones right of it.
/// Read one by one: there is no load here that leaves out lanes, and a whole vector could end past the picture.
VAKTOR_SSE41_DEDANS void CompareFin(Etat& etat, const uchar* pixel, qint32* entree, qint32 colonne, qint32 dedans,
                                    qint32 actifs) {
  std::array<qint32, kVoies> couleurs{-1, -1, -1, -1};
  for (qint32 i = 0; i < dedans; ++i, pixel += 4 * kPasEchantillon) {
    couleurs[static_cast<std::size_t>(i)] = LitCouleur(pixel);
  }
  etat.BlocPartiel(Charge(couleurs.data()), entree, colonne, actifs);
}

/// One row, with the next one fetched meanwhile. Gives the number of blocks, for the count.
VAKTOR_SSE41_DEDANS qint32 CompareLigne(Etat& etat, const BandeEchantillons& bande, const PartageLigne& partage,
                                        const uchar* pixel, qsizetype avance, qint32* entree) {
  const __m128i quatre = _mm_set1_epi32(kVoies);
  qint32 blocs = CompareDehors(etat, entree, 0, bande.Avant);
  entree += bande.Avant;
  __m128i colonnes = _mm_add_epi32(_mm_set1_epi32(bande.Avant), Numeros());
  for (qint32 i = 0; i < partage.Pleins; ++i) {
    _mm_prefetch(pixel + avance, _MM_HINT_T0);
    etat.Bloc(Rassemble(pixel), entree, colonnes);
    colonnes = _mm_add_epi32(colonnes, quatre);
    pixel += kOctetsBloc;
    entree += kVoies;
  }
  qint32 colonne = bande.Avant + kVoies * partage.Pleins;
  if (partage.FinActifs > 0) {
    CompareFin(etat, pixel, entree, colonne, partage.FinDedans, partage.FinActifs);
    ++blocs;
  }
  colonne += partage.FinActifs;
  entree += partage.FinActifs;
  return blocs + partage.Pleins + CompareDehors(etat, entree, colonne, partage.ResteDehors);
}

VAKTOR_SSE41 void RendCumul(const Etat& etat, qint64 blocs, CumulBande& cumul) {
  std::array<qint32, kVoies> inchanges{}, minima{}, maxima{};
  Range(inchanges.data(), etat.Inchanges);
  Range(minima.data(), etat.Min);
  Range(maxima.data(), etat.Max);
  AjouteVoies(cumul, blocs * kVoies, inchanges, minima, maxima);
}

}  // namespace

VAKTOR_SSE41 void CompareBandeSse41(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul) {
  constexpr qint32 kEcartMax = 0x1000000;  // no two colours lie further apart
  Etat etat{_mm_set1_epi32(std::clamp(tolerance, -1, kEcartMax) + 1), _mm_setzero_si128(), Etat::Uns(), Etat::Uns()};
  const PartageLigne partage = CalculePartage(bande, kVoies);
  const qint32 colonnes = bande.Avant + bande.Dedans + bande.Apres;
  qint64 blocs = 0;
  for (qint32 ligne = 0; ligne < bande.Lignes; ++ligne) {
    const __m128i avant = etat.Inchanges;
    const qsizetype avance = ligne + 1 < bande.Lignes ? bande.SautLigne : 0;
    const qint32 blocsLigne = CompareLigne(etat, bande, partage, bande.Pixels + ligne * bande.SautLigne, avance,
                                           bande.Entrees + qsizetype{ligne} * colonnes);
    blocs += blocsLigne;
    const __m128i immobile = _mm_sub_epi32(avant, _mm_set1_epi32(blocsLigne));
    if (_mm_movemask_epi8(_mm_cmpeq_epi32(immobile, etat.Inchanges)) != 0xffff) {
      cumul.CompteLigne(bande.PremiereLigne + ligne);
    }
  }
  RendCumul(etat, blocs, cumul);
}

}  // namespace vaktor

#endif
