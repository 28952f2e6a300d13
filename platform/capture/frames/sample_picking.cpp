#include "platform/capture/frames/sample_picking.h"

#include "engine/sampling.h"

#if defined(__x86_64__)
#include <tmmintrin.h>
#define VAKTOR_SSSE3 __attribute__((target("ssse3")))
#endif

namespace vaktor {
namespace {

#if defined(__x86_64__)

constexpr qint32 kGroupe = 16;
constexpr qint32 kPasVecteurs = 3;  // the shuffles know where the samples lie; another step is taken byte by byte

VAKTOR_SSSE3 __m128i Charge(const quint8* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(p)); }
VAKTOR_SSSE3 void Range(quint8* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i_u*>(p), v); }

// Sixteen bytes out of three vectors: each shuffle brings its own to their places and zeros to the others.
VAKTOR_SSSE3 qint32 PrendGroupes(const quint8* de, qint32 lisibles, quint8* vers, qint32 nombre) {
  const __m128i a = _mm_setr_epi8(0, 3, 6, 9, 12, 15, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1);
  const __m128i b = _mm_setr_epi8(-1, -1, -1, -1, -1, -1, 2, 5, 8, 11, 14, -1, -1, -1, -1, -1);
  const __m128i c = _mm_setr_epi8(-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, 1, 4, 7, 10, 13);
  qint32 fait = 0;
  constexpr qint32 kOctetsGroupe = kPasVecteurs * kGroupe;
  for (; fait + kGroupe <= nombre && kPasVecteurs * (fait + kGroupe) <= lisibles;
       fait += kGroupe, de += kOctetsGroupe) {
    const __m128i ab = _mm_or_si128(_mm_shuffle_epi8(Charge(de), a), _mm_shuffle_epi8(Charge(de + 16), b));
    Range(vers + fait, _mm_or_si128(ab, _mm_shuffle_epi8(Charge(de + 32), c)));
  }
  return fait;
}

// Two samples are three bytes apart, so eight of them lie in twelve bytes; two vectors overlap by four.
VAKTOR_SSSE3 qint32 PrendGroupesParPaires(const quint8* de, qint32 lisibles, bool impair, quint8* vers, qint32 nombre) {
  constexpr qint32 kOctetsGroupe = 24;
  constexpr qint32 kOctetsLus = 28;
  const __m128i paires = _mm_setr_epi8(0, 1, 3, 4, 6, 7, 9, 10, -1, -1, -1, -1, -1, -1, -1, -1);
  const __m128i impaires = _mm_setr_epi8(0, 2, 3, 5, 6, 8, 9, 11, -1, -1, -1, -1, -1, -1, -1, -1);
  const __m128i ordre = impair ? impaires : paires;
  qint32 fait = 0;
  for (qint32 lu = 0; fait + kGroupe <= nombre && lu + kOctetsLus <= lisibles; fait += kGroupe, lu += kOctetsGroupe) {
    const __m128i a = _mm_shuffle_epi8(Charge(de + lu), ordre);
    const __m128i b = _mm_shuffle_epi8(Charge(de + lu + 12), ordre);
    Range(vers + fait, _mm_unpacklo_epi64(a, b));
  }
  return fait;
}

bool VaParGroupes() {
  static const bool kConnait = __builtin_cpu_supports("ssse3") != 0;
  return kPasEchantillon == kPasVecteurs && kConnait;
}

#endif

}  // namespace

void PrendUnSurPas(const quint8* de, [[maybe_unused]] qint32 lisibles, quint8* vers, qint32 nombre) {
  qint32 i = 0;
#if defined(__x86_64__)
  if (VaParGroupes()) i = PrendGroupes(de, lisibles, vers, nombre);
#endif
  for (; i < nombre; ++i) vers[i] = de[qsizetype{kPasEchantillon} * i];
}

void PrendUnSurPasParPaires(const quint8* de, [[maybe_unused]] qint32 lisibles, bool impair, quint8* vers,
                            qint32 nombre) {
  qint32 i = 0;
#if defined(__x86_64__)
  if (VaParGroupes()) i = PrendGroupesParPaires(de, lisibles, impair, vers, nombre);
#endif
  for (; i < nombre; ++i) vers[i] = de[(kPasEchantillon * i + (impair ? 1 : 0)) / 2];
}

}  // namespace vaktor
