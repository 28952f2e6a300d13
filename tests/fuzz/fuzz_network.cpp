// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as what a camera of the network sends, in whatever it packs its pictures: from the web server's answer to
// the frames that are compared. What comes out are frames of a size that the detection can hold, or a reason why not.
#include <cstdint>
#include <mutex>
#include <string>

#include "fuzz/loopback_server.h"
#include "fuzz/played_stream.h"
#include "platform/capture/streams/gst_setup.h"

namespace vaktor {
namespace {

// Gives every caller the bytes of the moment, and hangs up.
class Serveur {
 public:
  QString Adresse(const std::uint8_t* donnees, std::size_t taille) {
    const std::lock_guard verrou(Verrou_);
    Octets_.assign(reinterpret_cast<const char*>(donnees), taille);
    return QStringLiteral("http://127.0.0.1:%1/image").arg(Serveur_.Port());
  }

 private:
  void Repond(int client) {
    char demande[4096];
    if (::recv(client, demande, sizeof demande, 0) <= 0) return;
    std::string reponse = "HTTP/1.0 200 OK\r\nConnection: close\r\n\r\n";
    {
      const std::lock_guard verrou(Verrou_);
      reponse += Octets_;
    }
    ServeurLocal::Envoie(client, reponse);
  }

  std::mutex Verrou_;
  std::string Octets_;
  ServeurLocal Serveur_{[this](int client) { Repond(client); }};  // last: its thread uses the others
};

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  static auto* const kServeur = new vaktor::Serveur;  // its thread has no end
  if (!vaktor::PrepareGStreamer()) return 0;
  vaktor::DemandeFlux demande;
  demande.Source.Genre = vaktor::GenreSource::kReseau;
  demande.Source.Lieu = kServeur->Adresse(donnees, taille);
  vaktor::JoueEtVerifie(demande);
  return 0;
}
