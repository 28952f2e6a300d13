// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/frozen_picture.h"

#include "engine/comparison/frame_comparison_bands.h"

namespace vaktor {

// Each step can be undone for a given sample (an odd factor), so that a difference in one of them stays one to the end.
EmpreinteImage PrendEmpreinte(const TrameBrute& trame, PhaseEchantillons phase) {
  constexpr quint64 kFacteur = 0x9E3779B97F4A7C15U;
  const qsizetype pas = qsizetype{4} * (trame.Serree ? 1 : kPasEchantillon);
  const qsizetype premier = qsizetype{4} * (trame.Serree ? 0 : phase.X);
  EmpreinteImage empreinte;
  qint32 clair = 0;
  for (qint32 y = phase.Y; y < trame.Hauteur; y += kPasEchantillon) {
    const uchar* pixel = trame.Bits + y * trame.OctetsParLigne + premier;
    for (qint32 x = phase.X; x < trame.Largeur; x += kPasEchantillon, pixel += pas) {
      const qint32 couleur = LitCouleur(pixel);
      clair |= couleur;
      empreinte.Somme = (empreinte.Somme ^ static_cast<quint32>(couleur)) * kFacteur;
    }
  }
  constexpr qint32 kClairs = 0x00FFFFFF & ~(kNoir * 0x00010101);
  static_assert((kNoir & (kNoir + 1)) == 0, "one bit more than the black ones tells that a sample is brighter");
  empreinte.Noire = (clair & kClairs) == 0;
  return empreinte;
}

void ImageFigee::Regarde(const EmpreinteImage& empreinte, quint32 maintenant) {
  if (!Vue_ || empreinte != Empreinte_ || maintenant - Regard_ > kTrouMs) {
    Oublie();
    Empreinte_ = empreinte;
    Debut_ = maintenant;
    Vue_ = true;
  }
  Regard_ = maintenant;
  // Once found it stays so: the counter comes by its beginning again after seven weeks.
  if (Etat_ == Etat::kVivante && maintenant - Debut_ >= kFigeeMs) {
    Etat_ = empreinte.Noire ? Etat::kNoire : Etat::kFigee;
  }
}

}  // namespace vaktor
