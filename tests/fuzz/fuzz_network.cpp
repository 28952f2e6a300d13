// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as what a camera of the network sends, in whatever it packs its pictures: from the web server's answer to
// the frames that are compared. What comes out are frames of a size that the detection can hold, or a reason why not.
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

#include "fuzz/played_stream.h"
#include "platform/capture/streams/gst_setup.h"

namespace vaktor {
namespace {

// Gives every caller the bytes of the moment, and hangs up. It ends with the process.
class Serveur {
 public:
  Serveur() : Prise_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in adresse{};
    adresse.sin_family = AF_INET;
    adresse.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* nue = reinterpret_cast<sockaddr*>(&adresse);
    socklen_t taille = sizeof adresse;
    if (::bind(Prise_, nue, taille) != 0 || ::listen(Prise_, 16) != 0 || ::getsockname(Prise_, nue, &taille) != 0)
      return;
    Port_ = ntohs(adresse.sin_port);
    std::thread([this] { Sert(); }).detach();
  }
  QString Adresse(const std::uint8_t* donnees, std::size_t taille) {
    const std::lock_guard verrou(Verrou_);
    Octets_.assign(reinterpret_cast<const char*>(donnees), taille);
    return QStringLiteral("http://127.0.0.1:%1/image").arg(Port_);
  }

 private:
  [[noreturn]] void Sert() {
    while (true) {
      const int client = ::accept4(Prise_, nullptr, nullptr, SOCK_CLOEXEC);
      if (client < 0) continue;
      char demande[4096];
      if (::recv(client, demande, sizeof demande, 0) > 0) Repond(client);
      ::close(client);
    }
  }
  void Repond(int client) {
    std::string reponse = "HTTP/1.0 200 OK\r\nConnection: close\r\n\r\n";
    {
      const std::lock_guard verrou(Verrou_);
      reponse += Octets_;
    }
    std::size_t parti = 0;
    while (parti < reponse.size()) {
      const ssize_t n = ::send(client, reponse.data() + parti, reponse.size() - parti, MSG_NOSIGNAL);
      if (n <= 0) return;
      parti += static_cast<std::size_t>(n);
    }
  }

  const int Prise_;
  int Port_ = 0;
  std::mutex Verrou_;
  std::string Octets_;
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
