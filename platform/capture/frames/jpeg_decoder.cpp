// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/frames/jpeg_decoder.h"

#include <turbojpeg.h>

#include <cstring>

#include "platform/capture/choice/fitted_size.h"

namespace vaktor {
namespace {

constexpr int kRemplissagesToleres = 10;
// A progressive picture may ask for any number of passes over it: a few bytes each, and hours of work.
constexpr int kDrapeaux = TJFLAG_LIMITSCANS;

GstVideoFormat FormatDesPlans(int sousEchantillon) {
  switch (sousEchantillon) {
    case TJSAMP_420:
      return GST_VIDEO_FORMAT_I420;
    case TJSAMP_422:
      return GST_VIDEO_FORMAT_Y42B;
    case TJSAMP_444:
      return GST_VIDEO_FORMAT_Y444;
    default:
      return GST_VIDEO_FORMAT_UNKNOWN;
  }
}

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
  TropGrande_ = false;
  if (Turbo_ == nullptr || jpeg.empty()) return {};
  if (tjDecompressHeader3(Turbo_, jpeg.data(), jpeg.size(), &largeur, &hauteur, &sousEchantillon, &couleurs) != 0 &&
      tjGetErrorCode(Turbo_) != TJERR_WARNING)
    return {};
  TropGrande_ = EstDemesuree(largeur, hauteur);
  if (largeur <= 0 || hauteur <= 0 || TropGrande_) return {};
  FixePlans({largeur, hauteur}, sousEchantillon, couleurs);
  return {largeur, hauteur};
}

// A frame that ends between its tables leaves TurboJPEG in the middle of its work: it would then refuse every frame
// that follows.
void DecodeurJpeg::Renouvelle() {
  if (Turbo_ != nullptr) tjDestroy(Turbo_);
  Turbo_ = tjInitDecompress();
}

void DecodeurJpeg::FixePlans(QSize taille, int sousEchantillon, int couleurs) {
  Plans_ = Plans();
  const GstVideoFormat format = FormatDesPlans(sousEchantillon);
  if (couleurs != TJCS_YCbCr || format == GST_VIDEO_FORMAT_UNKNOWN) return;
  Plans_.Format = format;
  for (int i = 0; i < 3; ++i) {
    Plans_.Plan.at(static_cast<std::size_t>(i)) = {tjPlaneWidth(i, taille.width(), sousEchantillon),
                                                   tjPlaneHeight(i, taille.height(), sousEchantillon)};
  }
}

// Some webcams leave filling bytes before a marker in every frame. A frame that is damaged does it too, but not all
// the frames in a row.
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
  return Juge(tjDecompress2(Turbo_, jpeg.data(), jpeg.size(), image.bits(), image.width(),
                            static_cast<int>(image.bytesPerLine()), image.height(), TJPF_BGRA,
                            TJFLAG_FASTUPSAMPLE | kDrapeaux));
}

bool DecodeurJpeg::DecodePlans(std::span<const quint8> jpeg, std::array<quint8*, 3> plans) {
  std::array<int, 3> pas{Plans_.Plan[0].Pas, Plans_.Plan[1].Pas, Plans_.Plan[2].Pas};
  return Juge(tjDecompressToYUVPlanes(Turbo_, jpeg.data(), jpeg.size(), plans.data(), 0, pas.data(), 0, kDrapeaux));
}

bool DecodeurJpeg::Juge(int resultat) {
  if (resultat == 0) {
    RemplissagesDeSuite_ = 0;
    return true;
  }
  return tjGetErrorCode(Turbo_) == TJERR_WARNING && EstHabitude();
}

}  // namespace vaktor
