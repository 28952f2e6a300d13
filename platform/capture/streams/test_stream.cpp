#include "platform/capture/streams/test_stream.h"

namespace vaktor {
namespace {

constexpr std::chrono::nanoseconds kPeriode{std::chrono::nanoseconds(std::chrono::seconds(1)) / ImageTest::kCadence};

}  // namespace

bool FluxTest::Ouvre() {
  FormatCamera format;
  format.Largeur = ImageTest::kLargeur;
  format.Hauteur = ImageTest::kHauteur;
  format.CadenceNum = ImageTest::kCadence;
  Boite_.FixeFormat(format);
  Prochaine_ = BoiteImages::Horloge::now();
  return true;
}

FluxImages::Etat FluxTest::Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) {
  const auto fin = BoiteImages::Horloge::now() + delai;
  std::unique_lock verrou(Verrou_);
  while (!arret.stop_requested() && BoiteImages::Horloge::now() < fin) {
    Reveil_.wait_until(verrou, arret, Prochaine_, [] { return false; });
    if (!arret.stop_requested()) Livre();
  }
  return Etat::kCoule;
}

// Every frame is shown once, in its order, so that each run shows the same; a machine that slept does not hurry after.
void FluxTest::Livre() {
  if (QImage* image = Reserve_.Prend(QSize(ImageTest::kLargeur, ImageTest::kHauteur))) {
    Image_.Dessine(Numero_++, *image);
    Boite_.Depose(*image);
  }
  const auto maintenant = BoiteImages::Horloge::now();
  Prochaine_ += kPeriode;
  if (maintenant - Prochaine_ > std::chrono::seconds(1)) Prochaine_ = maintenant;
}

}  // namespace vaktor
