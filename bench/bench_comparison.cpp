// SPDX-License-Identifier: GPL-3.0-or-later
// The comparison of one frame against the limit that memory sets, the plain loop and OpenCV.
//
// All sides are timed in the same loop, in turn, so that whatever else the machine does meets them alike: in each round
// every side takes a lot of frames, and a ratio is the median over the rounds of the ratio within one round. A lot in
// memory is the whole ring; in the cache it takes long enough that caches and predictors have forgotten the side
// before. Times are CPU times of the thread, microseconds for one frame. Columns:
//   us          ours, with the instructions that the program chooses on this machine
//   x_limit     ours to the limit, the faster of its two forms
//   limit_plain the limit itself, the same form, to the plain loop: below this nothing can come
//   x_plain     ours to the plain loop
//   sse_plain   ours with SSE4.1 only, to the plain loop
//   x_cv        ours to OpenCV on the same samples;  x_cv_full: to OpenCV on the whole picture
//   changed     share of changed samples, per cent
// "memory": a ring of frames far larger than the last cache. "cache": two frames in turn.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

#include "bench/comparison_peers.h"
#include "bench/frame_ring.h"
#include "bench/timing.h"
#include "engine/comparison/frame_comparison.h"

namespace vaktor {
namespace {

constexpr qint32 kTolerance = 1'000'000;
constexpr double kPixelsParLotEnCache = 150e6;  // 5 to 10 ms of ours
constexpr int kTours = 9;

enum Cote { kNous, kSse, kSimple, kLimite, kLimiteAnticipee, kCvTiers, kCvEntier, kNombreCotes };

class Duel {
 public:
  Duel(qint32 largeur, qint32 hauteur, SujetTrames sujet, bool enCache)
      : Anneau_(largeur, hauteur, sujet, enCache),
        Zone_{.Gauche = 0, .Droite = largeur - 1, .Haut = 0, .Bas = hauteur - 1},
        Echantillons_(EchantillonsParmi(largeur) * EchantillonsParmi(hauteur)),
        Lot_(enCache ? static_cast<int>(kPixelsParLotEnCache / largeur / hauteur) / 2 * 2 : Anneau_.Nombre()) {
    for (auto& table : Tables_) table.resize(static_cast<std::size_t>(Echantillons_) + TableEchantillons::kMarge);
  }

  /// One round; the side that begins changes each time.
  void Tour() {
    std::array<double, kNombreCotes> temps{};
    for (int i = 0; i < kNombreCotes; ++i) {
      const int cote = (i + Tours_) % kNombreCotes;
      temps.at(static_cast<std::size_t>(cote)) = MesureLot(static_cast<Cote>(cote));
    }
    ++Tours_;
    Nous_.push_back(temps[kNous]);
    Limite_.push_back(temps[kNous] / temps[kLimite]);
    LimiteAnticipee_.push_back(temps[kNous] / temps[kLimiteAnticipee]);
    Simple_.push_back(temps[kNous] / temps[kSimple]);
    Sse_.push_back(temps[kSse] / temps[kSimple]);
    CvTiers_.push_back(temps[kNous] / temps[kCvTiers]);
    CvEntier_.push_back(temps[kNous] / temps[kCvEntier]);
  }

  double DernierTemps() const { return Nous_.back(); }

  void Rends(benchmark::State& etat) const {
    etat.counters["us"] = Mediane(Nous_);
    // The faster form by its median, not the faster one of each round: that would take the luck of both.
    const double limite = std::max(Mediane(Limite_), Mediane(LimiteAnticipee_));
    etat.counters["x_limit"] = limite;
    etat.counters["x_plain"] = Mediane(Simple_);
    etat.counters["limit_plain"] = Mediane(Simple_) / limite;
    if (ConnaitJeu(JeuInstructions::kSse41)) etat.counters["sse_plain"] = Mediane(Sse_);
    if (PairOpenCv::Disponible()) {
      etat.counters["x_cv"] = Mediane(CvTiers_);
      etat.counters["x_cv_full"] = Mediane(CvEntier_);
    }
    etat.counters["changed"] = 100.0 * static_cast<double>(Changes_) / (static_cast<double>(Trames_) * Echantillons_);
  }

 private:
  double MesureLot(Cote cote) {
    Compare(cote);  // brings the side's own table back into the cache
    Compare(cote);
    const double debut = Microsecondes();
    for (int i = 0; i < Lot_; ++i) Compare(cote);
    return (Microsecondes() - debut) / Lot_;
  }

  void Compare(Cote cote) {
    const TrameBrute trame = Anneau_.Suivante();
    std::vector<qint32>& entrees = Tables_.at(cote);
    const TableEchantillons table{entrees.data(), Echantillons_};
    switch (cote) {
      case kNous: {
        const ResultatComparaison vu = CompareTrame(Jeu_, trame, Zone_, kTolerance, table, 0);
        Changes_ += vu.NbrPoints;
        ++Trames_;
        break;
      }
      case kSse:
        if (!ConnaitJeu(JeuInstructions::kSse41)) break;
        benchmark::DoNotOptimize(CompareTrame(JeuInstructions::kSse41, trame, Zone_, kTolerance, table, 0));
        break;
      case kSimple:
        benchmark::DoNotOptimize(CompareSansApprets(trame, kTolerance, entrees.data()));
        break;
      case kLimite:
      case kLimiteAnticipee:
        benchmark::DoNotOptimize(ToucheLignes(trame, cote == kLimiteAnticipee));
        break;
      case kCvTiers:
        benchmark::DoNotOptimize(OpenCvTiers_.Compare(trame));
        break;
      case kCvEntier:
        benchmark::DoNotOptimize(OpenCvEntier_.Compare(trame));
        break;
      case kNombreCotes:
        break;
    }
  }

  JeuInstructions Jeu_ = ChoisitJeu();
  AnneauTrames Anneau_;
  ZoneDetection Zone_;
  qint32 Echantillons_;
  int Lot_;
  int Tours_ = 0;
  qint64 Changes_ = 0, Trames_ = 0;
  std::array<std::vector<qint32>, kNombreCotes> Tables_;
  PairOpenCv OpenCvTiers_{true}, OpenCvEntier_{false};
  std::vector<double> Nous_, Limite_, LimiteAnticipee_, Simple_, Sse_, CvTiers_, CvEntier_;
};

void MesureComparaison(benchmark::State& etat, SujetTrames sujet, bool enCache) {
  Duel duel(static_cast<qint32>(etat.range(0)), static_cast<qint32>(etat.range(1)), sujet, enCache);
  duel.Tour();
  for ([[maybe_unused]] const auto _ : etat) {
    duel.Tour();
    etat.SetIterationTime(duel.DernierTemps() * 1e-6);
  }
  duel.Rends(etat);
}

void Tailles(benchmark::internal::Benchmark* mesure) {
  mesure->Args({640, 480})->Args({1280, 720})->Args({1920, 1080});
  mesure->UseManualTime()->Iterations(kTours)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(MesureComparaison, memory_still, SujetTrames::kImmobile, false)->Apply(Tailles);
BENCHMARK_CAPTURE(MesureComparaison, memory_noise, SujetTrames::kBruit, false)->Apply(Tailles);
BENCHMARK_CAPTURE(MesureComparaison, memory_all, SujetTrames::kTout, false)->Apply(Tailles);
BENCHMARK_CAPTURE(MesureComparaison, cache_still, SujetTrames::kImmobile, true)->Apply(Tailles);
BENCHMARK_CAPTURE(MesureComparaison, cache_noise, SujetTrames::kBruit, true)->Apply(Tailles);
BENCHMARK_CAPTURE(MesureComparaison, cache_all, SujetTrames::kTout, true)->Apply(Tailles);

}  // namespace
}  // namespace vaktor
