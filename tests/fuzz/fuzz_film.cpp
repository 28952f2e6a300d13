// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a film: through the whole way of one, from the parts that GStreamer takes it into to the frames that are
// compared. What comes out are frames of a size that the detection can hold, or a reason why not.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

#include "fuzz/played_stream.h"
#include "platform/capture/streams/gst_setup.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (!vaktor::PrepareGStreamer()) return 0;
  const int film = ::memfd_create("film", MFD_CLOEXEC);
  if (film < 0) return 0;
  if (::write(film, donnees, taille) == static_cast<ssize_t>(taille)) {
    vaktor::DemandeFlux demande;
    demande.Source.Genre = vaktor::GenreSource::kFichier;
    demande.Source.Lieu = QStringLiteral("/proc/self/fd/%1").arg(film);
    vaktor::JoueEtVerifie(demande);
  }
  ::close(film);
  return 0;
}
