// SPDX-License-Identifier: GPL-3.0-or-later
// The comparison with SSE4.1, for processors without AVX2: four samples at a time. The same road as with AVX2: twelve
// pixels are three vectors, sample k lies in lane 3k mod 4, and one shuffle of bytes does the colours and the order.
#if defined(__x86_64__)

#define VAKTOR_CIBLE __attribute__((target("sse4.1")))
#include <immintrin.h>

#include <array>
#include <cstring>

#include "engine/comparison/frame_comparison_rows.h"

namespace vaktor {
namespace {

constexpr qint32 kVoies = 4;
static_assert(kPasVecteurs == 3, "the blends know which lanes the samples lie in");
static_assert(TableEchantillons::kMarge >= kVoies - 1);

VAKTOR_DEDANS __m128i Charge(const void* p) { return _mm_loadu_si128(static_cast<const __m128i_u*>(p)); }
VAKTOR_DEDANS void Range(void* p, __m128i v) { _mm_storeu_si128(static_cast<__m128i_u*>(p), v); }

/// Four pixels as colours.
VAKTOR_DEDANS __m128i Couleurs(__m128i pixels) {
  return _mm_shuffle_epi8(pixels, _mm_setr_epi8(2, 1, 0, -1, 6, 5, 4, -1, 10, 9, 8, -1, 14, 13, 12, -1));
}

/// Four samples that lie `pas` pixels apart, as colours, in the order of the scan.
template <qint32 pas>
VAKTOR_DEDANS __m128i Rassemble(const uchar* pixel) {
  if constexpr (pas == 1) return Couleurs(Charge(pixel));
  const __m128i ordre = _mm_setr_epi8(2, 1, 0, -1, 14, 13, 12, -1, 10, 9, 8, -1, 6, 5, 4, -1);
  const __m128i pixels =
      _mm_blend_epi16(_mm_blend_epi16(Charge(pixel), Charge(pixel + 32), 0x0c), Charge(pixel + 16), 0x30);
  return _mm_shuffle_epi8(pixels, ordre);
}

VAKTOR_DEDANS qint32 LitPixel(const uchar* pixel) {
  qint32 octets = 0;
  std::memcpy(&octets, pixel, sizeof octets);
  return octets;
}

/// Up to four samples, read one by one: there is no load here that leaves out lanes, and a whole vector could end past
/// the picture.
template <qint32 pas>
VAKTOR_DEDANS __m128i RassemblePartiel(const uchar* pixel, qint32 nombre) {
  __m128i pixels = _mm_cvtsi32_si128(LitPixel(pixel));
  if (nombre > 1) pixels = _mm_insert_epi32(pixels, LitPixel(pixel + kOctetsEchantillon<pas>), 1);
  if (nombre > 2) pixels = _mm_insert_epi32(pixels, LitPixel(pixel + 2 * kOctetsEchantillon<pas>), 2);
  if (nombre > 3) pixels = _mm_insert_epi32(pixels, LitPixel(pixel + 3 * kOctetsEchantillon<pas>), 3);
  return Couleurs(pixels);
}

/// Sixteen answers of four bytes become bytes.
VAKTOR_DEDANS __m128i Serre(__m128i a, __m128i b, __m128i c, __m128i d) {
  return _mm_packs_epi16(_mm_packs_epi32(a, b), _mm_packs_epi32(c, d));
}

template <qint32 pas>
class JeuSse41 {
  static constexpr qsizetype kOctetsBloc = kVoies * kOctetsEchantillon<pas>;

 public:
  VAKTOR_DEDANS explicit JeuSse41(qint32 tolerance) : Tolerance_(_mm_set1_epi32(tolerance)) {}

  VAKTOR_DEDANS __m128i Groupe(const uchar* pixel, qint32* entree) const {
    const __m128i a = Bloc(pixel, entree);
    const __m128i b = Bloc(pixel + kOctetsBloc, entree + kVoies);
    const __m128i c = Bloc(pixel + 2 * kOctetsBloc, entree + qsizetype{2} * kVoies);
    return Serre(a, b, c, Bloc(pixel + 3 * kOctetsBloc, entree + qsizetype{3} * kVoies));
  }
  VAKTOR_DEDANS __m128i Fin(const uchar* pixel, qint32* entree, qint32 nombre) const {
    std::array<qint32, kGroupe> changes{};
    qint32* suivant = changes.data();
    for (; nombre > kVoies; nombre -= kVoies, pixel += kOctetsBloc, entree += kVoies, suivant += kVoies) {
      Range(suivant, Bloc(pixel, entree));
    }
    Range(suivant, BlocPartiel(pixel, entree, nombre));
    return Serre(Charge(&changes[0]), Charge(&changes[4]), Charge(&changes[8]), Charge(&changes[12]));
  }

 private:
  VAKTOR_DEDANS __m128i Compare(__m128i couleurs, __m128i anciennes) const {
    return _mm_cmpgt_epi32(_mm_abs_epi32(_mm_sub_epi32(anciennes, couleurs)), Tolerance_);
  }
  VAKTOR_DEDANS __m128i Bloc(const uchar* pixel, qint32* entree) const {
    const __m128i couleurs = Rassemble<pas>(pixel);
    const __m128i anciennes = Charge(entree);
    Range(entree, couleurs);
    return Compare(couleurs, anciennes);
  }
  VAKTOR_DEDANS __m128i BlocPartiel(const uchar* pixel, qint32* entree, qint32 nombre) const {
    const __m128i actives = _mm_cmpgt_epi32(_mm_set1_epi32(nombre), _mm_setr_epi32(0, 1, 2, 3));
    const __m128i couleurs = RassemblePartiel<pas>(pixel, nombre);
    const __m128i anciennes = Charge(entree);
    Range(entree, _mm_blendv_epi8(anciennes, couleurs, actives));
    return _mm_and_si128(Compare(couleurs, anciennes), actives);
  }

  __m128i Tolerance_;
};

}  // namespace

void CompareBandeSse41(const BandeEchantillons& bande, qint32 tolerance, CumulBande& cumul) {
  CompareBandeParGroupes<JeuSse41>(bande, tolerance, cumul);
}

}  // namespace vaktor

#endif
