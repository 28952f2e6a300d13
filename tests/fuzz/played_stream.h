// SPDX-License-Identifier: GPL-3.0-or-later
// One stream, opened, looked at for a moment and closed: what both harnesses of streams do with what they are given.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stop_token>

#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/frames/newest_frame.h"
#include "platform/capture/streams/gst_stream.h"

namespace vaktor {

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
  const QImage& image = arrivee.Image.Entiere();
  if (image.isNull() || EstTropGrande(image.size())) std::abort();
}

}  // namespace vaktor
