// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/comparison_peers.h"

namespace vaktor {
namespace {

constexpr quintptr kLigneCache = 64;

template <bool kAnticipe>
quint64 Touche(const TrameBrute& trame) {
  quint64 a = 0;
  quint64 b = 0;
  for (qint32 y = 0; y < trame.Hauteur; y += kPasEchantillon) {
    const uchar* debut = trame.Bits + y * trame.OctetsParLigne;
    const uchar* fin = debut + qsizetype{4} * trame.Largeur;
    const qsizetype suivante = y + kPasEchantillon < trame.Hauteur ? kPasEchantillon * trame.OctetsParLigne : 0;
    const uchar* p = debut - reinterpret_cast<quintptr>(debut) % kLigneCache;
    const auto lit = [](const uchar* adresse) {
      return *static_cast<const volatile quint64*>(static_cast<const void*>(adresse));
    };
    for (; p + kLigneCache < fin; p += 2 * kLigneCache) {
      if constexpr (kAnticipe) {
        __builtin_prefetch(p + suivante);
        __builtin_prefetch(p + suivante + kLigneCache);
      }
      a += lit(p);
      b += lit(p + kLigneCache);
    }
    if (p < fin) a += lit(p);
  }
  return a ^ b;
}

}  // namespace

quint64 ToucheLignes(const TrameBrute& trame, bool anticipe) {
  return anticipe ? Touche<true>(trame) : Touche<false>(trame);
}

}  // namespace vaktor
