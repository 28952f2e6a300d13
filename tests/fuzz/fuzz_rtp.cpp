// SPDX-License-Identifier: GPL-3.0-or-later
// Any packets as what a camera sends, within its RTSP connection (RFC 2326, section 10.12) or by UDP: from the packets
// to the frames that are compared. An input is the number of a coding, by UDP that plus how many there are, then
// packets of RTP (RFC 3550), each behind its length in two bytes, the higher first.
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/loopback_server.h"
#include "fuzz/played_stream.h"
#include "platform/capture/streams/gst_setup.h"

namespace vaktor {
namespace {

// What the camera says that it sends: the number of the format, and its name where the number tells none.
constexpr std::array kCodages = {"96\r\na=rtpmap:96 H264/90000\r\na=fmtp:96 packetization-mode=1",
                                 "96\r\na=rtpmap:96 H265/90000",
                                 "26",
                                 "96\r\na=rtpmap:96 MP4V-ES/90000",
                                 "96\r\na=rtpmap:96 VP8/90000",
                                 "96\r\na=rtpmap:96 VP9/90000",
                                 "33"};

class Camera {
 public:
  QString Adresse(const std::uint8_t* donnees, std::size_t taille) {
    const std::lock_guard verrou(Verrou_);
    Codage_ = taille > 0 ? donnees[0] % kCodages.size() : 0;
    Udp_ = taille > 0 && donnees[0] / kCodages.size() % 2 != 0;
    Paquets_.clear();
    Datagrammes_.clear();
    for (std::size_t i = 1; i + 2 < taille;) {
      const std::size_t voulus = std::size_t{donnees[i]} << 8 | donnees[i + 1];
      const std::size_t longueur = std::min(voulus, taille - i - 2);
      Datagrammes_.emplace_back(reinterpret_cast<const char*>(donnees + i + 2), longueur);
      Paquets_ += {'$', '\0', static_cast<char>(longueur >> 8), static_cast<char>(longueur & 255)};
      Paquets_ += Datagrammes_.back();
      i += 2 + longueur;
    }
    return QStringLiteral("rtsp://127.0.0.1:%1/c").arg(Serveur_.Port());
  }

  /// Whether the packets last given go by UDP.
  bool Udp() const { return Udp_; }

 private:
  // The caller's own packets, reports of what arrived, stand between its requests and are passed over with them.
  void Parle(int client) {
    std::string recu;
    char octets[4096];
    while (true) {
      const std::size_t fin = recu.find("\r\n\r\n");
      if (fin != std::string::npos) {
        if (!Repond(client, recu.substr(0, fin))) return;
        recu.erase(0, fin + 4);
        continue;
      }
      const ssize_t n = ::recv(client, octets, sizeof octets, 0);
      if (n <= 0) return;
      recu.append(octets, static_cast<std::size_t>(n));
    }
  }
  bool Repond(int client, const std::string& demande) {
    const std::lock_guard verrou(Verrou_);
    const std::size_t numero = demande.find("CSeq: ");
    std::string reponse = "RTSP/1.0 200 OK\r\n";
    if (numero != std::string::npos) reponse += demande.substr(numero, demande.find("\r\n", numero) - numero) + "\r\n";
    const auto est = [&](const char* quoi) { return demande.find(quoi) != std::string::npos; };
    if (est("OPTIONS rtsp")) reponse += "Public: DESCRIBE, SETUP, PLAY, TEARDOWN\r\n";
    if (est("SETUP rtsp")) reponse += Transport(demande) + "\r\nSession: 1\r\n";
    if (est("PLAY rtsp")) reponse += "Session: 1\r\n";
    if (est("DESCRIBE rtsp")) {
      const std::string sdp = std::string("v=0\r\no=- 1 1 IN IP4 127.0.0.1\r\ns=c\r\nc=IN IP4 0.0.0.0\r\nt=0 0\r\n") +
                              "m=video 0 RTP/AVP " + kCodages.at(Codage_) + "\r\na=control:t\r\n";
      reponse += "Content-Type: application/sdp\r\nContent-Length: " + std::to_string(sdp.size()) + "\r\n\r\n" + sdp;
    } else {
      reponse += "\r\n";
    }
    if (est("PLAY rtsp") && !Udp_) reponse += Paquets_;
    if (!ServeurLocal::Envoie(client, reponse)) return false;
    if (est("PLAY rtsp") && Udp_) EnvoieDatagrammes();
    return !est("TEARDOWN rtsp");
  }
  // The ports in which the caller wants packets and reports.
  std::string Transport(const std::string& demande) {
    constexpr std::string_view kPorts = "client_port=";
    const std::size_t ou = demande.find(kPorts);
    if (!Udp_ || ou == std::string::npos) return "Transport: RTP/AVP/TCP;unicast;interleaved=0-1";
    const std::string ports = demande.substr(ou, demande.find_first_of(";\r", ou) - ou);
    PortPaquets_ = static_cast<std::uint16_t>(std::strtoul(ports.c_str() + kPorts.size(), nullptr, 10));
    return "Transport: RTP/AVP;unicast;" + ports + ";server_port=9-10";
  }
  void EnvoieDatagrammes() const {
    const int prise = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in adresse{};
    adresse.sin_family = AF_INET;
    adresse.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    adresse.sin_port = htons(PortPaquets_);
    for (const std::string& paquet : Datagrammes_)
      ::sendto(prise, paquet.data(), paquet.size(), 0, reinterpret_cast<const sockaddr*>(&adresse), sizeof adresse);
    ::close(prise);
  }

  std::mutex Verrou_;
  std::size_t Codage_ = 0;
  std::atomic<bool> Udp_ = false;
  std::uint16_t PortPaquets_ = 0;
  std::string Paquets_;  // as they go within the connection
  std::vector<std::string> Datagrammes_;
  ServeurLocal Serveur_{[this](int client) { Parle(client); }};  // last: its thread uses the others
};

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  static auto* const kCamera = new vaktor::Camera;  // its thread has no end
  if (!vaktor::PrepareGStreamer()) return 0;
  vaktor::DemandeFlux demande;
  demande.Source.Genre = vaktor::GenreSource::kReseau;
  demande.Source.Lieu = kCamera->Adresse(donnees, taille);
  demande.Udp = kCamera->Udp();
  vaktor::JoueEtVerifie(demande);
  return 0;
}
