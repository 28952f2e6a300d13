// SPDX-License-Identifier: GPL-3.0-or-later
// The comparison with AVX2: eight samples at a time.
//
// Eight samples are 24 pixels, three vectors. Sample k of a block lies in lane 3k mod 8 of one of them, so no two
// samples claim the same lane: two blends bring all eight into one vector, one shuffle turns the bytes into
// 0x00BBGGRR, and one permutation puts them into the order of the scan, which is the order of the table.
#if defined(__x86_64__)

#define VAKTOR_CIBLE __attribute__((target("avx2")))
#include <immintrin.h>

#include <algorithm>

#include "engine/comparison/frame_comparison_rows.h"

namespace vaktor {
namespace {

constexpr qint32 kVoies = 8;
static_assert(kPasVecteurs == 3, "the blends know which lanes the samples lie in");
static_assert(TableEchantillons::kMarge >= kVoies - 1);

VAKTOR_DEDANS __m256i Charge(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i_u*>(p)); }
/// Reads only the lanes of `masque`; the others may lie in no memory at all.
VAKTOR_DEDANS __m256i ChargePartiel(const void* p, __m256i masque) {
  return _mm256_maskload_epi32(static_cast<const int*>(p), masque);
}
VAKTOR_DEDANS void Range(void* p, __m256i v) { _mm256_storeu_si256(static_cast<__m256i_u*>(p), v); }
/// The first `nombre` lanes, counted from lane `debut` on.
VAKTOR_DEDANS __m256i Premieres(qint32 nombre, qint32 debut = 0) {
  return _mm256_cmpgt_epi32(_mm256_set1_epi32(nombre - debut), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
}

/// Eight pixels as colours.
VAKTOR_DEDANS __m256i Couleurs(__m256i pixels) {
  const __m256i octets = _mm256_setr_epi8(2, 1, 0, -1, 6, 5, 4, -1, 10, 9, 8, -1, 14, 13, 12, -1,  //
                                          2, 1, 0, -1, 6, 5, 4, -1, 10, 9, 8, -1, 14, 13, 12, -1);
  return _mm256_shuffle_epi8(pixels, octets);
}

/// The samples of three vectors of pixels, as colours, in the order of the scan.
VAKTOR_DEDANS __m256i Rassemble(__m256i a, __m256i b, __m256i c) {
  const __m256i ordre = _mm256_setr_epi32(0, 3, 6, 1, 4, 7, 2, 5);
  const __m256i pixels = _mm256_blend_epi32(_mm256_blend_epi32(a, b, 0x92), c, 0x24);
  return _mm256_permutevar8x32_epi32(Couleurs(pixels), ordre);
}

/// Eight samples that lie `pas` pixels apart.
template <qint32 pas>
VAKTOR_DEDANS __m256i LitBloc(const uchar* pixel) {
  if constexpr (pas == 1) {
    return Couleurs(Charge(pixel));
  } else {
    return Rassemble(Charge(pixel), Charge(pixel + 32), Charge(pixel + 64));
  }
}

/// The first `nombre` of them; the other lanes are nothing.
template <qint32 pas>
VAKTOR_DEDANS __m256i LitBlocPartiel(const uchar* pixel, qint32 nombre) {
  const qint32 lisibles = pas * (nombre - 1) + 1;
  const __m256i a = ChargePartiel(pixel, Premieres(lisibles));
  if constexpr (pas == 1) {
    return Couleurs(a);
  } else {
    return Rassemble(a, ChargePartiel(pixel + 32, Premieres(lisibles, kVoies)),
                     ChargePartiel(pixel + 64, Premieres(lisibles, 2 * kVoies)));
  }
}

/// Sixteen answers of four bytes become bytes. Both packings go by halves of the vectors: the last shuffle mends that.
VAKTOR_DEDANS __m128i Serre(__m256i premiers, __m256i seconds) {
  const __m256i mots = _mm256_packs_epi32(premiers, seconds);
  const __m128i octets = _mm_packs_epi16(_mm256_castsi256_si128(mots), _mm256_extracti128_si256(mots, 1));
  return _mm_shuffle_epi32(octets, _MM_SHUFFLE(3, 1, 2, 0));
}

template <qint32 pas>
class JeuAvx2 {
  static constexpr qsizetype kOctetsBloc = kVoies * kOctetsEchantillon<pas>;

 public:
  VAKTOR_DEDANS explicit JeuAvx2(qint32 tolerance) : Tolerance_(_mm256_set1_epi32(tolerance)) {}

  VAKTOR_DEDANS __m128i Groupe(const uchar* pixel, qint32* entree) const {
    const __m256i premiers = Bloc(pixel, entree);
    return Serre(premiers, Bloc(pixel + kOctetsBloc, entree + kVoies));
  }
  VAKTOR_DEDANS __m128i Fin(const uchar* pixel, qint32* entree, qint32 nombre) const {
    if (nombre <= kVoies) return Serre(BlocPartiel(pixel, entree, nombre), _mm256_setzero_si256());
    const __m256i premiers = Bloc(pixel, entree);
    pixel += kOctetsBloc;
    return Serre(premiers, BlocPartiel(pixel, entree + kVoies, nombre - kVoies));
  }

 private:
  VAKTOR_DEDANS __m256i Compare(__m256i couleurs, __m256i anciennes) const {
    return _mm256_cmpgt_epi32(_mm256_abs_epi32(_mm256_sub_epi32(couleurs, anciennes)), Tolerance_);
  }
  VAKTOR_DEDANS __m256i Bloc(const uchar* pixel, qint32* entree) const {
    const __m256i couleurs = LitBloc<pas>(pixel);
    const __m256i changes = Compare(couleurs, Charge(entree));
    Range(entree, couleurs);
    return changes;
  }
  VAKTOR_DEDANS __m256i BlocPartiel(const uchar* pixel, qint32* entree, qint32 nombre) const {
    const __m256i couleurs = LitBlocPartiel<pas>(pixel, nombre);
    const __m256i anciennes = Charge(entree);
    Range(entree, _mm256_blendv_epi8(anciennes, couleurs, Premieres(nombre)));
    return _mm256_and_si256(Compare(couleurs, anciennes), Premieres(nombre));
  }

  __m256i Tolerance_;
};

}  // namespace

void CompareBandeAvx2(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul) {
  CompareBandeParGroupes<JeuAvx2>(bande, tolerance, cumul);
}

}  // namespace vaktor

#endif
