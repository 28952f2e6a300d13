#include "platform/capture/jpeg_decoder.h"

#include <turbojpeg.h>

#include <cstring>

namespace vaktor {
namespace {

constexpr qint64 kPixelsMaximum = 64'000'000;
constexpr int kRemplissagesToleres = 10;

}  // namespace

DecodeurJpeg::DecodeurJpeg() : Turbo_(tjInitDecompress()) {}

DecodeurJpeg::~DecodeurJpeg() {
  if (Turbo_ != nullptr) tjDestroy(Turbo_);
}

QSize DecodeurJpeg::Taille(std::span<const quint8> jpeg) {
  const QSize taille = LitEntete(jpeg);
  if (taille.isEmpty()) Renouvelle();
  return taille;
}

QSize DecodeurJpeg::LitEntete(std::span<const quint8> jpeg) {
  int largeur = 0;
  int hauteur = 0;
  int sousEchantillon = 0;
  int couleurs = 0;
  if (Turbo_ == nullptr || jpeg.empty()) return {};
  if (tjDecompressHeader3(Turbo_, jpeg.data(), jpeg.size(), &largeur, &hauteur, &sousEchantillon, &couleurs) != 0 &&
      tjGetErrorCode(Turbo_) != TJERR_WARNING)
    return {};
  if (largeur <= 0 || hauteur <= 0 || qint64{largeur} * hauteur > kPixelsMaximum) return {};
  return {largeur, hauteur};
}

// A frame that ends between its tables leaves TurboJPEG in the middle of its work: it would then refuse every frame
// that follows.
void DecodeurJpeg::Renouvelle() {
  if (Turbo_ != nullptr) tjDestroy(Turbo_);
  Turbo_ = tjInitDecompress();
}

// Some webcams leave filling bytes before a marker in every frame. A frame that is damaged does it too, but not all the
// frames in a row.
bool DecodeurJpeg::EstHabitude() {
  if (std::strstr(tjGetErrorStr2(Turbo_), "extraneous bytes") == nullptr) {
    RemplissagesDeSuite_ = 0;
    return false;
  }
  if (RemplissagesDeSuite_ < kRemplissagesToleres) ++RemplissagesDeSuite_;
  return RemplissagesDeSuite_ >= kRemplissagesToleres;
}

bool DecodeurJpeg::Decode(std::span<const quint8> jpeg, QImage& image) {
  // BGRA and not BGRX: the fourth byte is then promised to be 0xff. Chroma is spread without smoothing, which is a
  // sixth of the decoding; the detection reads every third pixel.
  const int resultat =
      tjDecompress2(Turbo_, jpeg.data(), jpeg.size(), image.bits(), image.width(),
                    static_cast<int>(image.bytesPerLine()), image.height(), TJPF_BGRA, TJFLAG_FASTUPSAMPLE);
  if (resultat == 0) {
    RemplissagesDeSuite_ = 0;
    return true;
  }
  return tjGetErrorCode(Turbo_) == TJERR_WARNING && EstHabitude();
}

}  // namespace vaktor
