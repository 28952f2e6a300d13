// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/frame_ring.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace vaktor {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kAnneauMin = std::size_t{256} << 20U;
constexpr std::size_t kAnneauMax = std::size_t{1024} << 20U;

std::size_t TailleAnneau() {
  const long cache = sysconf(_SC_LEVEL3_CACHE_SIZE);
  return std::clamp(2 * static_cast<std::size_t>(std::max(cache, 0L)), kAnneauMin, kAnneauMax);
}

quint32 Hasard(quint64& etat) {
  etat ^= etat << 13U;
  etat ^= etat >> 7U;
  etat ^= etat << 17U;
  return static_cast<quint32>(etat >> 16U);
}

}  // namespace

void AnneauTrames::Liberation::operator()(uchar* bloc) const { std::free(bloc); }

AnneauTrames::AnneauTrames(qint32 largeur, qint32 hauteur, SujetTrames sujet, bool enCache)
    : Largeur_(largeur),
      Hauteur_(hauteur),
      OctetsTrame_((static_cast<std::size_t>(largeur) * static_cast<std::size_t>(hauteur) * 4 + kPage - 1) / kPage *
                   kPage),
      Nombre_(enCache ? 2 : static_cast<qint32>(TailleAnneau() / OctetsTrame_ + 2) / 2 * 2),
      Memoire_(static_cast<uchar*>(std::aligned_alloc(kPage, OctetsTrame_ * static_cast<std::size_t>(Nombre_)))) {
  if (!Memoire_) throw std::bad_alloc();
  for (qint32 i = 0; i < Nombre_; ++i) Peins(i, sujet);
}

void AnneauTrames::Peins(qint32 numero, SujetTrames sujet) {
  uchar* pixel = Memoire_.get() + OctetsTrame_ * static_cast<std::size_t>(numero);
  quint64 texture = 88172645463325252ULL;  // the same in all frames
  quint64 bruit = texture + 977U * static_cast<quint64>(numero + 1);
  const int eclair = sujet == SujetTrames::kTout && numero % 2 == 1 ? 128 : 0;
  for (qint32 y = 0; y < Hauteur_; ++y) {
    for (qint32 x = 0; x < Largeur_; ++x, pixel += 4) {
      const quint32 grain = Hasard(texture);
      const int ecart = sujet == SujetTrames::kBruit ? static_cast<int>(Hasard(bruit) % 19U) - 9 : 0;
      const int bleu = 20 + static_cast<int>(grain % 32U) + 40 * x / Largeur_ + ecart + eclair;
      pixel[0] = static_cast<uchar>(bleu);
      pixel[1] = static_cast<uchar>(grain >> 8U);
      pixel[2] = static_cast<uchar>(grain >> 16U);
      pixel[3] = 0xff;
    }
  }
}

TrameBrute AnneauTrames::Suivante() {
  const uchar* bits = Memoire_.get() + OctetsTrame_ * static_cast<std::size_t>(Prochaine_);
  Prochaine_ = (Prochaine_ + 1) % Nombre_;
  return {bits, qsizetype{4} * Largeur_, Largeur_, Hauteur_};
}

double AnneauTrames::Mebioctets() const {
  return static_cast<double>(OctetsTrame_) * Nombre_ / static_cast<double>(1U << 20U);
}

}  // namespace vaktor
