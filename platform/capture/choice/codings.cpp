// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/choice/codings.h"

#include <algorithm>
#include <array>

namespace vaktor {

namespace {

constexpr const char* kBrut = "video/x-raw";
constexpr Phrase kPeuDeDebit{"images JPEG, peu de débit", "JPEG pictures, little traffic"};
constexpr Phrase kPeuDeCalcul{"non compressé, peu de calcul", "not compressed, little work"};
constexpr Phrase kNonCompresse{"non compressé", "not compressed"};
constexpr Phrase kFilmCompresse{"film compressé, beaucoup de calcul", "compressed film, much work"};

constexpr std::array kCodages = std::to_array<CodageCamera>({
    {"MJPG", "image/jpeg", nullptr, CoutCodage::kJpeg, kPeuDeDebit},
    {"JPEG", "image/jpeg", nullptr, CoutCodage::kJpeg, kPeuDeDebit},
    {"H264", "video/x-h264", nullptr, CoutCodage::kFilm, kFilmCompresse},
    {"HEVC", "video/x-h265", nullptr, CoutCodage::kFilm, kFilmCompresse},
    {"MPG4", "video/mpeg"},
    {"VP80", "video/x-vp8"},
    {"VP90", "video/x-vp9"},
    {"YUYV", kBrut, "YUY2", CoutCodage::kConversion, kPeuDeCalcul},
    {"UYVY", kBrut, "UYVY", CoutCodage::kAutreBrut, kNonCompresse},
    {"YVYU", kBrut, "YVYU", CoutCodage::kAutreBrut},
    {"NV12", kBrut, "NV12", CoutCodage::kConversion, kPeuDeCalcul},
    {"NM12", kBrut, "NV12"},
    {"NV21", kBrut, "NV21", CoutCodage::kAutreBrut},
    {"NM21", kBrut, "NV21"},
    {"NV16", kBrut, "NV16"},
    {"NV61", kBrut, "NV61"},
    {"NV24", kBrut, "NV24"},
    {"YU12", kBrut, "I420", CoutCodage::kConversion, kPeuDeCalcul},
    {"YM12", kBrut, "I420"},
    {"YV12", kBrut, "YV12", CoutCodage::kAutreBrut},
    {"422P", kBrut, "Y42B"},
    {"411P", kBrut, "Y41B"},
    {"RGB3", kBrut, "RGB", CoutCodage::kAutreBrut},
    {"BGR3", kBrut, "BGR", CoutCodage::kAutreBrut},
    {"XR24", kBrut, "BGRx", CoutCodage::kAutreBrut},
    {"BGR4", kBrut, "BGRx", CoutCodage::kAutreBrut},
    {"AR24", kBrut, "BGRA"},
    {"BX24", kBrut, "xRGB", CoutCodage::kAutreBrut},
    {"RGB4", kBrut, "xRGB"},
    {"BA24", kBrut, "ARGB"},
    {"XB24", kBrut, "RGBx"},
    {"AB24", kBrut, "RGBA"},
    {"RGBP", kBrut, "RGB16"},
    {"RGBO", kBrut, "RGB15"},
    {"XR15", kBrut, "RGB15"},
    {"GREY", kBrut, "GRAY8", CoutCodage::kAutreBrut},
    {"Y16", kBrut, "GRAY16_LE"},
    {"Y16-BE", kBrut, "GRAY16_BE"},
});

}  // namespace

std::span<const CodageCamera> TousCodages() { return kCodages; }

const CodageCamera* TrouveCodage(const QString& code) {
  const auto trouve =
      std::ranges::find_if(kCodages, [&](const CodageCamera& codage) { return code == QLatin1String(codage.V4L2); });
  return trouve == kCodages.end() ? nullptr : &*trouve;
}

}  // namespace vaktor
