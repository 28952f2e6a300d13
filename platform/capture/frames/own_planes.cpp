// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/frames/own_planes.h"

#include <libyuv/scale.h>
#include <libyuv/scale_argb.h>

#include <new>

namespace vaktor {
namespace {

int MoitieHaute(int cote) { return (cote + 1) / 2; }

QSize TailleCouleur(GstVideoFormat format, QSize taille) {
  if (format == GST_VIDEO_FORMAT_Y444) return taille;
  return {MoitieHaute(taille.width()),
          format == GST_VIDEO_FORMAT_Y42B ? taille.height() : MoitieHaute(taille.height())};
}

}  // namespace

bool Agrandis(std::vector<quint8>& octets, std::size_t nombre) {
  try {
    octets.resize(nombre);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

bool PlansPropres::Pose(const PlansImage& forme, const std::array<Etendue, 3>& etendues) {
  std::array<size_t, 3> debuts{};
  size_t fin = 0;
  for (size_t i = 0; i < debuts.size(); ++i) {
    debuts.at(i) = fin;
    fin += static_cast<size_t>(etendues.at(i).Pas) * static_cast<size_t>(etendues.at(i).Lignes);
  }
  if (!Agrandis(Octets_, fin)) return false;
  Plans_ = forme;
  for (size_t i = 0; i < Ou_.size(); ++i) {
    Ou_.at(i) = Octets_.data() + debuts.at(i);
    Plans_.Plans.at(i) = {Ou_.at(i), etendues.at(i).Pas};
  }
  return true;
}

bool PlansPropres::DecodeJpeg(DecodeurJpeg& decodeur, std::span<const quint8> jpeg, QSize taille) {
  const DecodeurJpeg::Plans& plans = decodeur.PlansDeLImage();
  std::array<Etendue, 3> etendues;
  for (size_t i = 0; i < etendues.size(); ++i) etendues.at(i) = {plans.Plan.at(i).Pas, plans.Plan.at(i).Lignes};
  return Pose({plans.Format, GST_VIDEO_COLOR_MATRIX_BT601, true, taille.width(), taille.height(), {}}, etendues) &&
         decodeur.DecodePlans(jpeg, Ou_);
}

// The filter that is asked for is the mean of all pixels in the place of one. Where a side stays longer than half of
// what it was, and is not three quarters of it, the library itself takes the four nearest: hardly one is left out then.
bool PlansPropres::Reduit(const PlansImage& plans, QSize taille) {
  PlansImage forme = plans;
  forme.Largeur = taille.width();
  forme.Hauteur = taille.height();
  const QSize avant = TailleCouleur(plans.Format, {plans.Largeur, plans.Hauteur});
  const QSize couleur = TailleCouleur(plans.Format, taille);
  if (!Pose(forme, {{{taille.width(), taille.height()},
                     {couleur.width(), couleur.height()},
                     {couleur.width(), couleur.height()}}}))
    return false;
  libyuv::ScalePlane(plans.Plans[0].Octets, plans.Plans[0].Pas, plans.Largeur, plans.Hauteur, Ou_[0], taille.width(),
                     taille.width(), taille.height(), libyuv::kFilterBox);
  for (const std::size_t i : {std::size_t{1}, std::size_t{2}}) {
    libyuv::ScalePlane(plans.Plans.at(i).Octets, plans.Plans.at(i).Pas, avant.width(), avant.height(), Ou_.at(i),
                       couleur.width(), couleur.width(), couleur.height(), libyuv::kFilterBox);
  }
  return true;
}

bool ReduitImage(const QImage& de, QImage& vers) {
  return libyuv::ARGBScale(de.constBits(), static_cast<int>(de.bytesPerLine()), de.width(), de.height(), vers.bits(),
                           static_cast<int>(vers.bytesPerLine()), vers.width(), vers.height(), libyuv::kFilterBox) == 0;
}

}  // namespace vaktor
