// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a photo of an intrusion: what a film takes is one whole picture with a size, and a card shows what can
// be decoded of it, no larger than its place.
#include <cstdint>
#include <cstdlib>

#include "base/jpeg_end.h"
#include "platform/journal/film_photo.h"
#include "platform/journal/thumbnail_file_reader.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

void Essaie(QByteArrayView octets) {
  const QSize taille = MesurePhotoDuFilm(octets);
  Exige(taille.isEmpty() || FinJpeg(octets) > 0);
  Exige(qint64{taille.width()} * taille.height() <= kPixelsFilmMax);
  constexpr qint64 kPixelsEssayes = 4'000'000;  // what is larger is only slower
  if (qint64{taille.width()} * taille.height() > kPixelsEssayes) return;
  const QSize place(176, 132);
  const Vignette vignette = DecodeVignette(octets, place);
  if (vignette.Etat != EtatPhoto::kLue) return;
  Exige(!vignette.Image.isNull() && vignette.Image.width() <= place.width() &&
        vignette.Image.height() <= place.height());
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  vaktor::Essaie(QByteArrayView(donnees, static_cast<qsizetype>(taille)));
  return 0;
}
