// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/frames/sample_conversion.h"

#include <algorithm>
#include <array>

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

namespace {

// Even, so that a piece that begins with any pixel begins with the same one of a pair.
constexpr qint32 kMorceau = 512;

using Octets = std::array<quint8, kMorceau>;

/// How many pixels share a byte of the planes of colour, as powers of two.
struct Partage {
  int EnLargeur, EnHauteur;
};

Partage PartageDe(GstVideoFormat format) {
  switch (format) {
    case GST_VIDEO_FORMAT_Y444:
      return {0, 0};
    case GST_VIDEO_FORMAT_Y42B:
      return {1, 0};
    default:
      return {1, 1};
  }
}

/// The samples of one row, as rows of planes of their own: no pixel shares its colour with another any more.
class LigneEchantillons {
 public:
  LigneEchantillons(const PlansImage& plans, const Partage& partage, qint32 y)
      : Largeur_(plans.Largeur),
        LargeurCouleur_((plans.Largeur + (1 << partage.EnLargeur) - 1) >> partage.EnLargeur),
        Paires_(partage.EnLargeur != 0) {
    for (std::size_t i = 0; i < Lignes_.size(); ++i) {
      const qptrdiff ligne = i == 0 ? y : y >> partage.EnHauteur;
      Lignes_.at(i) = plans.Plans.at(i).Octets + ligne * plans.Plans.at(i).Pas;
    }
  }

  /// `nombre` samples from pixel `x` on.
  void Prend(qint32 x, qint32 nombre) {
    PrendUnSurPas(Lignes_[0] + x, Largeur_ - x, Y.data(), nombre);
    PrendCouleur(Lignes_[1], x, U.data(), nombre);
    PrendCouleur(Lignes_[2], x, V.data(), nombre);
  }

  Octets Y, U, V;

 private:
  void PrendCouleur(const quint8* ligne, qint32 x, quint8* vers, qint32 nombre) const {
    if (!Paires_) return PrendUnSurPas(ligne + x, LargeurCouleur_ - x, vers, nombre);
    const qint32 debut = x / 2;
    PrendUnSurPasParPaires(ligne + debut, LargeurCouleur_ - debut, x % 2 != 0, vers, nombre);
  }

  std::array<const quint8*, 3> Lignes_{};
  qint32 Largeur_, LargeurCouleur_;
  bool Paires_;
};

}  // namespace

bool ConvertitEchantillons(const PlansImage& plans, PhaseEchantillons phase, const RangEchantillons& vers) {
  const Partage partage = PartageDe(plans.Format);
  const libyuv::YuvConstants* matrice = MatriceDe(plans);
  quint8* rangee = vers.Octets;
  for (qint32 y = phase.Y; y < plans.Hauteur; y += kPasEchantillon, rangee += vers.Pas) {
    LigneEchantillons ligne(plans, partage, y);
    quint8* pixel = rangee;
    for (qint32 x = phase.X; x < plans.Largeur; x += kPasEchantillon * kMorceau, pixel += qsizetype{4} * kMorceau) {
      const qint32 nombre = std::min(kMorceau, EchantillonsParmi(plans.Largeur - x));
      ligne.Prend(x, nombre);
      if (libyuv::I444ToARGBMatrix(ligne.Y.data(), kMorceau, ligne.U.data(), kMorceau, ligne.V.data(), kMorceau, pixel,
                                   4 * kMorceau, matrice, nombre, 1) != 0)
        return false;
    }
  }
  return true;
}

}  // namespace vaktor
