// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/frames/pixel_conversion.h"

#include <libyuv/convert_argb.h>
#include <libyuv/planar_functions.h>

#include <QByteArrayList>
#include <algorithm>
#include <array>

namespace vaktor {

namespace {

using Plan = PlansImage::Plan;

struct Cible {
  quint8* Octets;
  int Pas;
  int Largeur;
  int Hauteur;
};

using ConversionPlanaire = decltype(&libyuv::I420ToARGBMatrix);

template <ConversionPlanaire kConversion>
bool ConvertitPlanaire(const PlansImage& trame, const Cible& cible) {
  const auto& [y, u, v] = trame.Plans;
  return kConversion(y.Octets, y.Pas, u.Octets, u.Pas, v.Octets, v.Pas, cible.Octets, cible.Pas, MatriceDe(trame),
                     cible.Largeur, cible.Hauteur) == 0;
}

using ConversionDeuxPlans = decltype(&libyuv::NV12ToARGBMatrix);

template <ConversionDeuxPlans kConversion>
bool ConvertitDeuxPlans(const PlansImage& trame, const Cible& cible) {
  const Plan& y = trame.Plans[0];
  const Plan& uv = trame.Plans[1];
  return kConversion(y.Octets, y.Pas, uv.Octets, uv.Pas, cible.Octets, cible.Pas, MatriceDe(trame), cible.Largeur,
                     cible.Hauteur) == 0;
}

using Deballage = decltype(&libyuv::YUY2ToI422);

// libyuv turns packed YUV into pixels with one matrix only. Unpacking a piece of a row at a time keeps the three parts
// in the nearest cache, and any matrix can follow.
template <Deballage kDeballage>
bool ConvertitEntrelace(const PlansImage& trame, const Cible& cible) {
  constexpr int kMorceau = 1024;  // even: a pair of pixels shares its chroma
  std::array<quint8, kMorceau> y;
  std::array<quint8, kMorceau / 2> u;
  std::array<quint8, kMorceau / 2> v;
  const Plan& source = trame.Plans[0];
  const libyuv::YuvConstants* matrice = MatriceDe(trame);
  for (int ligne = 0; ligne < cible.Hauteur; ++ligne) {
    const quint8* de = source.Octets + qptrdiff{ligne} * source.Pas;
    quint8* vers = cible.Octets + qptrdiff{ligne} * cible.Pas;
    for (int x = 0; x < cible.Largeur; x += kMorceau) {
      const int largeur = std::min(kMorceau, cible.Largeur - x);
      kDeballage(de + qptrdiff{2} * x, source.Pas, y.data(), kMorceau, u.data(), kMorceau / 2, v.data(), kMorceau / 2,
                 largeur, 1);
      libyuv::I422ToARGBMatrix(y.data(), kMorceau, u.data(), kMorceau / 2, v.data(), kMorceau / 2,
                               vers + qptrdiff{4} * x, cible.Pas, matrice, largeur, 1);
    }
  }
  return true;
}

// YUY2 with its two colours the other way round.
int YvyuToI422(const quint8* de, int pas, quint8* y, int pasY, quint8* u, int pasU, quint8* v, int pasV, int largeur,
               int hauteur) {
  return libyuv::YUY2ToI422(de, pas, y, pasY, v, pasV, u, pasU, largeur, hauteur);
}

// 32-bit pixels: the fourth byte of what comes is anything.
template <bool kRougeDabord>
bool CopieQuatreOctets(const PlansImage& trame, const Cible& cible) {
  const Plan& source = trame.Plans[0];
  for (int ligne = 0; ligne < cible.Hauteur; ++ligne) {
    const auto* de = reinterpret_cast<const quint32*>(source.Octets + qptrdiff{ligne} * source.Pas);
    auto* vers = reinterpret_cast<quint32*>(cible.Octets + qptrdiff{ligne} * cible.Pas);
    if constexpr (kRougeDabord) {
      for (int x = 0; x < cible.Largeur; ++x) {
        const quint32 p = de[x];
        vers[x] = 0xFF000000U | ((p & 0xFFU) << 16) | (p & 0xFF00U) | ((p >> 16) & 0xFFU);
      }
    } else {
      for (int x = 0; x < cible.Largeur; ++x) vers[x] = de[x] | 0xFF000000U;
    }
  }
  return true;
}

using ConversionSimple = decltype(&libyuv::RAWToARGB);

template <ConversionSimple kConversion>
bool ConvertitSimple(const PlansImage& trame, const Cible& cible) {
  const Plan& source = trame.Plans[0];
  return kConversion(source.Octets, source.Pas, cible.Octets, cible.Pas, cible.Largeur, cible.Hauteur) == 0;
}

bool ConvertitGris(const PlansImage& trame, const Cible& cible) {
  const Plan& y = trame.Plans[0];
  return libyuv::I400ToARGBMatrix(y.Octets, y.Pas, cible.Octets, cible.Pas, MatriceDe(trame), cible.Largeur,
                                  cible.Hauteur) == 0;
}

struct Conversion {
  GstVideoFormat Format;
  bool (*Convertit)(const PlansImage&, const Cible&);
};

// In the order in which they are asked for where a camera or a decoder offers several: what costs least first.
constexpr std::array kConversions = std::to_array<Conversion>({
    {GST_VIDEO_FORMAT_I420, ConvertitPlanaire<libyuv::I420ToARGBMatrix>},
    {GST_VIDEO_FORMAT_NV12, ConvertitDeuxPlans<libyuv::NV12ToARGBMatrix>},
    {GST_VIDEO_FORMAT_YUY2, ConvertitEntrelace<libyuv::YUY2ToI422>},
    {GST_VIDEO_FORMAT_BGRx, CopieQuatreOctets<false>},
    {GST_VIDEO_FORMAT_UYVY, ConvertitEntrelace<libyuv::UYVYToI422>},
    {GST_VIDEO_FORMAT_NV21, ConvertitDeuxPlans<libyuv::NV21ToARGBMatrix>},
    {GST_VIDEO_FORMAT_YV12, ConvertitPlanaire<libyuv::I420ToARGBMatrix>},
    {GST_VIDEO_FORMAT_Y42B, ConvertitPlanaire<libyuv::I422ToARGBMatrix>},
    {GST_VIDEO_FORMAT_Y444, ConvertitPlanaire<libyuv::I444ToARGBMatrix>},
    {GST_VIDEO_FORMAT_BGRA, CopieQuatreOctets<false>},
    {GST_VIDEO_FORMAT_RGBx, CopieQuatreOctets<true>},
    {GST_VIDEO_FORMAT_RGBA, CopieQuatreOctets<true>},
    {GST_VIDEO_FORMAT_BGR, ConvertitSimple<libyuv::RGB24ToARGB>},
    {GST_VIDEO_FORMAT_RGB, ConvertitSimple<libyuv::RAWToARGB>},
    {GST_VIDEO_FORMAT_GRAY8, ConvertitGris},
    {GST_VIDEO_FORMAT_YVYU, ConvertitEntrelace<YvyuToI422>},
});

// The planes from this pixel on; `couleur` pixels share a colour.
PlansImage CommenceA(const PlansImage& plans, QPoint pixel, QSize couleur) {
  PlansImage vus = plans;
  for (size_t i = 0; i < vus.Plans.size(); ++i) {
    const QPoint place = i == 0 ? pixel : QPoint(pixel.x() / couleur.width(), pixel.y() / couleur.height());
    vus.Plans.at(i).Octets += qptrdiff{place.y()} * plans.Plans.at(i).Pas + place.x();
  }
  return vus;
}

const Conversion* TrouveConversion(GstVideoFormat format) {
  const auto trouve = std::ranges::find(kConversions, format, &Conversion::Format);
  return trouve == kConversions.end() ? nullptr : &*trouve;
}

}  // namespace

const libyuv::YuvConstants* MatriceDe(const PlansImage& trame) {
  const bool pleine = trame.Pleine;
  switch (trame.Matrice) {
    case GST_VIDEO_COLOR_MATRIX_BT709:
      return pleine ? &libyuv::kYuvF709Constants : &libyuv::kYuvH709Constants;
    case GST_VIDEO_COLOR_MATRIX_BT2020:
      return pleine ? &libyuv::kYuvV2020Constants : &libyuv::kYuv2020Constants;
    default:
      return pleine ? &libyuv::kYuvJPEGConstants : &libyuv::kYuvI601Constants;
  }
}

bool FormatConvertible(GstVideoFormat format) { return TrouveConversion(format) != nullptr; }

GstCaps* DonneCapsBruts() {
  QByteArrayList formats;
  for (const Conversion& conversion : kConversions) formats.append(gst_video_format_to_string(conversion.Format));
  return gst_caps_from_string("video/x-raw, format=(string){ " + formats.join(", ") + " }");
}

bool EstPlanaire(GstVideoFormat format) {
  return format == GST_VIDEO_FORMAT_I420 || format == GST_VIDEO_FORMAT_YV12 || format == GST_VIDEO_FORMAT_Y42B ||
         format == GST_VIDEO_FORMAT_Y444;
}

PlansImage PlansDe(const GstVideoFrame& trame) {
  PlansImage plans;
  plans.Format = GST_VIDEO_FRAME_FORMAT(&trame);
  plans.Matrice = trame.info.colorimetry.matrix;
  plans.Pleine = trame.info.colorimetry.range == GST_VIDEO_COLOR_RANGE_0_255;
  plans.Largeur = GST_VIDEO_FRAME_WIDTH(&trame);
  plans.Hauteur = GST_VIDEO_FRAME_HEIGHT(&trame);
  // By component and not by plane where they have planes of their own: YV12 holds its chroma the other way round.
  const bool planaire = EstPlanaire(plans.Format);
  const guint nombre = std::min(planaire ? GST_VIDEO_FRAME_N_COMPONENTS(&trame) : GST_VIDEO_FRAME_N_PLANES(&trame),
                                static_cast<guint>(plans.Plans.size()));
  for (guint i = 0; i < nombre; ++i) {
    const guint plan = planaire ? static_cast<guint>(GST_VIDEO_FRAME_COMP_PLANE(&trame, i)) : i;
    plans.Plans.at(i) = {static_cast<const quint8*>(GST_VIDEO_FRAME_PLANE_DATA(&trame, plan)),
                         GST_VIDEO_FRAME_PLANE_STRIDE(&trame, plan)};
  }
  return plans;
}

bool ConvertitImage(const PlansImage& plans, QImage& image) {
  if (image.size() != QSize(plans.Largeur, plans.Hauteur)) return false;
  const Conversion* conversion = TrouveConversion(plans.Format);
  return conversion != nullptr && conversion->Convertit(plans, {image.bits(), static_cast<int>(image.bytesPerLine()),
                                                                plans.Largeur, plans.Hauteur});
}

bool ConvertitPart(const PlansImage& plans, const QRect& part, quint8* vers, int pas) {
  const GstVideoFormatInfo* info = gst_video_format_get_info(plans.Format);
  const Conversion* conversion = EstPlanaire(plans.Format) ? TrouveConversion(plans.Format) : nullptr;
  if (conversion == nullptr || !QRect(0, 0, plans.Largeur, plans.Hauteur).contains(part)) return false;
  const int largeurCouleur = 1 << GST_VIDEO_FORMAT_INFO_W_SUB(info, 1);  // columns that share a colour
  const int hauteurCouleur = 1 << GST_VIDEO_FORMAT_INFO_H_SUB(info, 1);
  if (part.x() % largeurCouleur != 0) return false;
  for (int y = part.y(), lignes = 0; y <= part.bottom(); y += lignes) {
    // A first row that shares its colour with the one before goes by itself.
    lignes = y % hauteurCouleur != 0 ? 1 : part.bottom() + 1 - y;
    const PlansImage vus = CommenceA(plans, {part.x(), y}, {largeurCouleur, hauteurCouleur});
    if (!conversion->Convertit(vus, {vers + qptrdiff{y - part.y()} * pas, pas, part.width(), lignes})) return false;
  }
  return true;
}

bool ConvertitImage(const GstVideoFrame& trame, QImage& image) { return ConvertitImage(PlansDe(trame), image); }

}  // namespace vaktor
