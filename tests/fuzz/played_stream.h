// SPDX-License-Identifier: GPL-3.0-or-later
// One stream, opened, looked at for a moment and closed: what the harnesses of streams do with what they are given.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stop_token>

#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/frames/newest_frame.h"
#include "platform/capture/streams/gst_stream.h"

namespace vaktor {

/// Ends the program when a frame, shown by its parts, is not the one that is shown as a whole.
inline void CompareParts(const ImageCamera& trame) {
  const int largeur = trame.Taille().width(), hauteur = trame.Taille().height();
  const int coupe = largeur / 3 / 2 * 2, sous = hauteur / 2;
  QImage image(largeur, hauteur, QImage::Format_RGB32);
  for (const QRect& part :
       {QRect(0, 0, coupe, sous), QRect(coupe, 0, largeur - coupe, sous), QRect(0, sous, largeur, hauteur - sous)}) {
    if (part.isEmpty()) continue;
    if (!trame.EcritPart(part, image.scanLine(part.y()) + qsizetype{4} * part.x(), image.bytesPerLine())) return;
  }
  if (image != trame.Entiere()) std::abort();
}

/// Ends the program when a frame comes out that the detection cannot hold. A stream plays at its own rate: its first
/// picture and what follows at once are enough.
inline void JoueEtVerifie(const DemandeFlux& demande) {
  using std::chrono::milliseconds;
  constexpr milliseconds kPremiere{400};
  constexpr milliseconds kSuite{20};
  DerniereImage derniere;
  FluxGStreamer flux(derniere, demande);
  if (!flux.Ouvre()) return;
  const std::stop_source arret;
  auto fin = DerniereImage::Horloge::now() + kPremiere;
  while (DerniereImage::Horloge::now() < fin) {
    if (flux.Surveille(arret.get_token(), milliseconds(5)) != FluxImages::Etat::kCoule) break;
    if (derniere.Numero() > 0) fin = std::min(fin, DerniereImage::Horloge::now() + kSuite);
  }
  const DerniereImage::Arrivee arrivee = derniere.Prend(0);
  if (arrivee.Numero == 0) return;
  CompareParts(arrivee.Image);
  const QImage& image = arrivee.Image.Entiere();
  if (image.isNull() || EstTropGrande(image.size())) std::abort();
}

}  // namespace vaktor
