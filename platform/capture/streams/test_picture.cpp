// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/test_picture.h"

#include <QPainter>
#include <cstring>

namespace vaktor {
namespace {

constexpr quint32 kDepartsBruit = 16'384;  // rows of noise begin at one of so many places
constexpr double kPieds = 452;
constexpr double kDehors = 115;  // half of somebody's width: outside from here on
constexpr double kDoublePas = 128;

// The mixing step of SplitMix64 (Steele, Lea, Flood: Fast splittable pseudorandom number generators, 2014). The
// library's own generators may give other numbers elsewhere; this picture is to be the same everywhere.
quint64 Melange(quint64 x) {
  x += 0x9E3779B97F4A7C15U;
  x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9U;
  x = (x ^ (x >> 27)) * 0x94D049BB133111EBU;
  return x ^ (x >> 31);
}

// Each step away from the mean is so many times rarer than the one before, as a sensor's strays are. An even noise
// would have an edge: on one side of it nothing changes from frame to frame, on the other a thousand samples at once,
// and a tolerance that finds its place by itself rests on that edge.
constexpr quint64 kRarete = 8;

quint32 TireBruit(quint64 hasard) {
  int ecart = 0;
  quint64 reste = hasard >> 1;
  while (ecart < ImageTest::kBruit && reste % kRarete == 0) {
    ++ecart;
    reste /= kRarete;
  }
  return static_cast<quint8>(hasard % 2 == 0 ? ecart : -ecart);
}

std::vector<quint32> TableDeBruit() {
  std::vector<quint32> table(kDepartsBruit + ImageTest::kLargeur);
  for (size_t i = 0; i < table.size(); ++i) {
    const quint64 hasard = Melange(i);
    table[i] = TireBruit(hasard) | (TireBruit(hasard >> 20) << 8) | (TireBruit(hasard >> 40) << 16);
  }
  return table;
}

// Four channels at once, none carrying over into the next; the channels of the room leave room for the noise.
void AjouteBruit(const quint8* de, const quint8* bruit, quint8* vers) {
  constexpr int kOctets = ImageTest::kLargeur * 4;
  for (int i = 0; i < kOctets; ++i) vers[i] = static_cast<quint8>(de[i] + bruit[i]);
}

}  // namespace

ImageTest::ImageTest() : Piece_(DessinePiece()), Scene_(Piece_.copy()), Bruit_(TableDeBruit()) {}

bool ImageTest::EstPassage(quint64 numero) {
  return numero >= kPremierPassage && (numero - kPremierPassage) % kEntrePassages < kDureePassage;
}

void ImageTest::Dessine(quint64 numero, QImage& image) {
  MetEnScene(numero);
  DessineBruit(numero, image);
}

void ImageTest::MetEnScene(quint64 numero) {
  if (Passant_.isEmpty() && !EstPassage(numero)) return;
  QPainter peintre(&Scene_);
  peintre.drawImage(Passant_, Piece_, Passant_);
  Passant_ = QRect();
  if (!EstPassage(numero)) return;
  const quint64 depuis = numero - kPremierPassage;
  const double avance = static_cast<double>(depuis % kEntrePassages) / (kDureePassage - 1);
  const double chemin = avance * (kLargeur + 2 * kDehors);
  // To the right the first time, back to the left the next.
  const bool versLaDroite = (depuis / kEntrePassages) % 2 == 0;
  const double x = versLaDroite ? chemin - kDehors : kLargeur + kDehors - chemin;
  DessinePassant(peintre, x, kPieds, chemin / kDoublePas, versLaDroite ? 1 : -1);
  Passant_ = CadrePassant(x, kPieds);
}

void ImageTest::DessineBruit(quint64 numero, QImage& image) const {
  quint8* vers = image.bits();
  for (int y = 0; y < kHauteur; ++y) {
    const quint64 depart = Melange(numero * kHauteur + static_cast<quint64>(y)) % kDepartsBruit;
    AjouteBruit(Scene_.constScanLine(y), reinterpret_cast<const quint8*>(Bruit_.data() + depart),
                vers + qptrdiff{y} * image.bytesPerLine());
  }
}

namespace {

constexpr std::chrono::nanoseconds kPeriode{std::chrono::nanoseconds(std::chrono::seconds(1)) / ImageTest::kCadence};

}  // namespace

bool FluxTest::Ouvre() {
  FormatCamera format;
  format.Largeur = ImageTest::kLargeur;
  format.Hauteur = ImageTest::kHauteur;
  format.CadenceNum = ImageTest::kCadence;
  Derniere_.FixeFormat(format);
  Prochaine_ = DerniereImage::Horloge::now();
  return true;
}

FluxImages::Etat FluxTest::Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) {
  const auto fin = DerniereImage::Horloge::now() + delai;
  std::unique_lock verrou(Verrou_);
  while (!arret.stop_requested() && DerniereImage::Horloge::now() < fin) {
    Reveil_.wait_until(verrou, arret, Prochaine_, [] { return false; });
    if (!arret.stop_requested()) Livre();
  }
  return Etat::kCoule;
}

// Every frame is shown once, in its order, so that each run shows the same; a machine that slept does not hurry after.
void FluxTest::Livre() {
  if (QImage* image = Reserve_.Prend(QSize(ImageTest::kLargeur, ImageTest::kHauteur))) {
    Image_.Dessine(Numero_++, *image);
    Derniere_.Depose(*image);
  }
  const auto maintenant = DerniereImage::Horloge::now();
  Prochaine_ += kPeriode;
  if (maintenant - Prochaine_ > std::chrono::seconds(1)) Prochaine_ = maintenant;
}

}  // namespace vaktor
