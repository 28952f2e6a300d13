#include "platform/capture/frames/sample_conversion.h"

#include <algorithm>
#include <array>

#include "platform/capture/frames/sample_picking.h"

namespace vaktor {
namespace {

// Even, so that a piece that begins with any pixel begins with the same one of a pair.
constexpr qint32 kMorceau = 512;

using Octets = std::array<quint8, kMorceau>;

/// How many pixels share a byte of the planes of colour, as powers of two.
struct Partage {
  int EnLargeur, EnHauteur;
};

Partage PartageDe(GstVideoFormat format) {
  switch (format) {
    case GST_VIDEO_FORMAT_Y444:
      return {0, 0};
    case GST_VIDEO_FORMAT_Y42B:
      return {1, 0};
    default:
      return {1, 1};
  }
}

/// The samples of one row, as rows of planes of their own: no pixel shares its colour with another any more.
class LigneEchantillons {
 public:
  LigneEchantillons(const PlansImage& plans, const Partage& partage, qint32 y)
      : Largeur_(plans.Largeur),
        LargeurCouleur_((plans.Largeur + (1 << partage.EnLargeur) - 1) >> partage.EnLargeur),
        Paires_(partage.EnLargeur != 0) {
    for (std::size_t i = 0; i < Lignes_.size(); ++i) {
      const qptrdiff ligne = i == 0 ? y : y >> partage.EnHauteur;
      Lignes_.at(i) = plans.Plans.at(i).Octets + ligne * plans.Plans.at(i).Pas;
    }
  }

  /// `nombre` samples from pixel `x` on.
  void Prend(qint32 x, qint32 nombre) {
    PrendUnSurPas(Lignes_[0] + x, Largeur_ - x, Y.data(), nombre);
    PrendCouleur(Lignes_[1], x, U.data(), nombre);
    PrendCouleur(Lignes_[2], x, V.data(), nombre);
  }

  Octets Y, U, V;

 private:
  void PrendCouleur(const quint8* ligne, qint32 x, quint8* vers, qint32 nombre) const {
    if (!Paires_) return PrendUnSurPas(ligne + x, LargeurCouleur_ - x, vers, nombre);
    const qint32 debut = x / 2;
    PrendUnSurPasParPaires(ligne + debut, LargeurCouleur_ - debut, x % 2 != 0, vers, nombre);
  }

  std::array<const quint8*, 3> Lignes_{};
  qint32 Largeur_, LargeurCouleur_;
  bool Paires_;
};

}  // namespace

bool ConvertitEchantillons(const PlansImage& plans, PhaseEchantillons phase, const RangEchantillons& vers) {
  const Partage partage = PartageDe(plans.Format);
  const libyuv::YuvConstants* matrice = MatriceDe(plans);
  quint8* rangee = vers.Octets;
  for (qint32 y = phase.Y; y < plans.Hauteur; y += kPasEchantillon, rangee += vers.Pas) {
    LigneEchantillons ligne(plans, partage, y);
    quint8* pixel = rangee;
    for (qint32 x = phase.X; x < plans.Largeur; x += kPasEchantillon * kMorceau, pixel += qsizetype{4} * kMorceau) {
      const qint32 nombre = std::min(kMorceau, EchantillonsParmi(plans.Largeur - x));
      ligne.Prend(x, nombre);
      if (libyuv::I444ToARGBMatrix(ligne.Y.data(), kMorceau, ligne.U.data(), kMorceau, ligne.V.data(), kMorceau, pixel,
                                   4 * kMorceau, matrice, nombre, 1) != 0)
        return false;
    }
  }
  return true;
}

}  // namespace vaktor
