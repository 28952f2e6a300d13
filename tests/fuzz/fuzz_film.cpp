// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a film: through the whole way of one, from the parts that GStreamer takes it into to the frames that are
// compared. What comes out are frames of a size that the detection can hold, or a reason why not.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/frames/newest_frame.h"
#include "platform/capture/streams/gst_stream.h"

namespace vaktor {
namespace {

using std::chrono::milliseconds;

// A film plays at its own rate: its first picture and what follows at once are enough.
constexpr milliseconds kPremiere{400};
constexpr milliseconds kSuite{20};

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

void Joue(const QString& fichier) {
  DerniereImage derniere;
  DemandeFlux demande;
  demande.Source.Genre = GenreSource::kFichier;
  demande.Source.Lieu = fichier;
  FluxGStreamer flux(derniere, demande);
  if (!flux.Ouvre()) return;
  const std::stop_source arret;
  const auto debut = DerniereImage::Horloge::now();
  auto fin = debut + kPremiere;
  while (DerniereImage::Horloge::now() < fin) {
    if (flux.Surveille(arret.get_token(), milliseconds(5)) != FluxImages::Etat::kCoule) break;
    if (derniere.Numero() > 0) fin = std::min(fin, DerniereImage::Horloge::now() + kSuite);
  }
  const DerniereImage::Arrivee arrivee = derniere.Prend(0);
  if (arrivee.Numero == 0) return;
  const QImage& image = arrivee.Image.Entiere();
  Exige(!image.isNull() && !EstTropGrande(image.size()));
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (!vaktor::PrepareGStreamer()) return 0;
  const int film = ::memfd_create("film", MFD_CLOEXEC);
  if (film < 0) return 0;
  if (::write(film, donnees, taille) == static_cast<ssize_t>(taille)) {
    vaktor::Joue(QStringLiteral("/proc/self/fd/%1").arg(film));
  }
  ::close(film);
  return 0;
}
