// SPDX-License-Identifier: GPL-3.0-or-later
// Choice of a device's first format.
#include "platform/capture/choice/camera_format.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "platform/capture/choice/codings.h"
#include "platform/capture/choice/fitted_size.h"

namespace vaktor {
namespace {

constexpr double kCadenceVoulue = 25.0;
constexpr double kCadenceIdeale = 30.0;  // a tick comes every 30 ms: faster frames would only be thrown away
constexpr int kLargeurIdeale = 640;
constexpr int kHauteurIdeale = 480;
constexpr qsizetype kPremiersMax = 4;  // whoever waits for a camera gives up sooner

CoutCodage DonneCout(const FormatCamera& f) {
  const CodageCamera* codage = TrouveCodage(f.Codage);
  return codage == nullptr ? CoutCodage::kInconnu : codage->Cout;
}

bool EstInconnu(const FormatCamera& f) { return DonneCout(f) == CoutCodage::kInconnu; }

int Ecart(const FormatCamera& f) { return std::abs(f.Largeur - kLargeurIdeale) + std::abs(f.Hauteur - kHauteurIdeale); }

bool EstCourant(const FormatCamera& f) {
  for (const TailleCourante& taille : TaillesCourantes())
    if (taille.Largeur == f.Largeur && taille.Hauteur == f.Hauteur) return true;
  return false;
}

/// Whether `a` is a better first format than `b`, both common and fast enough: nearest size, cheapest coding, then the
/// rate nearest to what the ticks can use.
bool EstPlusProche(const FormatCamera& a, const FormatCamera& b) {
  if (Ecart(a) != Ecart(b)) return Ecart(a) < Ecart(b);
  if (DonneCout(a) != DonneCout(b)) return DonneCout(a) < DonneCout(b);
  return std::abs(a.ImagesParSeconde() - kCadenceIdeale) < std::abs(b.ImagesParSeconde() - kCadenceIdeale);
}

/// The same where no format is both common and fast: speed first.
bool EstPlusRapide(const FormatCamera& a, const FormatCamera& b) {
  if (a.ImagesParSeconde() != b.ImagesParSeconde()) return a.ImagesParSeconde() > b.ImagesParSeconde();
  return EstPlusProche(a, b);
}

qint64 Surface(const FormatCamera& f) { return qint64{f.Largeur} * f.Hauteur; }

/// The same where every format is too large: the least of them, in a coding that somebody understands.
bool EstMoinsGrand(const FormatCamera& a, const FormatCamera& b) {
  const bool connuA = !EstInconnu(a);
  const bool connuB = !EstInconnu(b);
  if (connuA != connuB) return connuA;
  if (Surface(a) != Surface(b)) return Surface(a) < Surface(b);
  return EstPlusProche(a, b);
}

QList<FormatCamera> AutresCodages(QList<FormatCamera> formats, const QList<FormatCamera>& essayes) {
  formats.removeIf([&](const FormatCamera& f) {
    return std::any_of(essayes.cbegin(), essayes.cend(), [&](const FormatCamera& e) { return e.Codage == f.Codage; });
  });
  return formats;
}

QList<FormatCamera> PlusPetits(QList<FormatCamera> formats, const QList<FormatCamera>& essayes) {
  formats.removeIf([&](const FormatCamera& f) {
    return std::any_of(essayes.cbegin(), essayes.cend(),
                       [&](const FormatCamera& e) { return Surface(f) >= Surface(e); });
  });
  return formats;
}

}  // namespace

const QList<TailleCourante>& TaillesCourantes() {
  static const QList<TailleCourante> kTailles = {
      {160, 120},   {176, 144},   {320, 180},   {320, 240},   {352, 288},   {424, 240},   {432, 240},
      {640, 360},   {640, 400},   {640, 480},   {720, 480},   {720, 576},   {768, 576},   {800, 448},
      {800, 600},   {848, 480},   {864, 480},   {960, 540},   {960, 720},   {1024, 576},  {1024, 768},
      {1280, 720},  {1280, 800},  {1280, 960},  {1280, 1024}, {1600, 896},  {1600, 900},  {1600, 1200},
      {1920, 1080}, {1920, 1200}, {2048, 1536}, {2304, 1296}, {2560, 1440}, {2592, 1944}, {3840, 2160}};
  return kTailles;
}

bool FormatTropGrand(const FormatCamera& format) { return EstTropGrande({format.Largeur, format.Hauteur}); }

bool SontTousTropGrands(const QList<FormatCamera>& formats) {
  return !formats.isEmpty() && std::all_of(formats.cbegin(), formats.cend(), FormatTropGrand);
}

FormatCamera ChoisitPremierFormat(const QList<FormatCamera>& formats) {
  const FormatCamera* proche = nullptr;
  const FormatCamera* rapide = nullptr;
  bool connuSeulement = false;
  for (const FormatCamera& f : formats) connuSeulement = connuSeulement || (!EstInconnu(f) && !FormatTropGrand(f));
  for (const FormatCamera& f : formats) {
    if (FormatTropGrand(f) || (connuSeulement && EstInconnu(f))) continue;
    if (rapide == nullptr || EstPlusRapide(f, *rapide)) rapide = &f;
    if (f.ImagesParSeconde() < kCadenceVoulue || !EstCourant(f)) continue;
    if (proche == nullptr || EstPlusProche(f, *proche)) proche = &f;
  }
  if (proche != nullptr) return *proche;
  if (rapide != nullptr) return *rapide;
  return formats.isEmpty() ? FormatCamera() : *std::min_element(formats.cbegin(), formats.cend(), EstMoinsGrand);
}

QList<FormatCamera> ListePremiersFormats(const QList<FormatCamera>& formats) {
  QList<FormatCamera> premiers = {ChoisitPremierFormat(formats)};
  if (formats.isEmpty()) return premiers;
  if (std::none_of(formats.cbegin(), formats.cend(), FormatTropGrand)) return premiers << FormatCamera();
  QList<FormatCamera> reste = formats;
  if (!SontTousTropGrands(formats)) reste.removeIf(FormatTropGrand);
  if (!std::all_of(reste.cbegin(), reste.cend(), EstInconnu)) reste.removeIf(EstInconnu);
  while (premiers.size() < kPremiersMax) {
    // A device that does not manage a format mostly lacks the coding, or the bandwidth for so many pixels.
    QList<FormatCamera> suite = AutresCodages(reste, premiers);
    if (suite.isEmpty()) suite = PlusPetits(reste, premiers);
    if (suite.isEmpty()) break;
    premiers.append(ChoisitPremierFormat(suite));
  }
  return premiers;
}

}  // namespace vaktor
