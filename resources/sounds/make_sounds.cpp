// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the four wave files of the program: make_sounds FOLDER. Mono, 16 bits, 44.1 kHz, RIFF/WAVE with a PCM chunk.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr double kFrequence = 44100.0;
constexpr double kTour = 2.0 * std::numbers::pi;
using Onde = std::vector<double>;

Onde Compose(double secondes, const std::function<double(double)>& son) {
  Onde onde(static_cast<std::size_t>(secondes * kFrequence));
  for (std::size_t i = 0; i < onde.size(); ++i) onde[i] = son(static_cast<double>(i) / kFrequence);
  return onde;
}

// Rises in a few milliseconds and dies away: no click at either end.
double Enveloppe(double t, double attaque, double chute) { return std::min(t / attaque, 1.0) * std::exp(-t / chute); }

double Cloche(double t, double hauteur, double chute) {
  if (t < 0) return 0;
  // Partials of a struck bar (1, 2.76, 5.40): bright and metallic, each dying sooner than the one below.
  return Enveloppe(t, 0.002, chute) * std::sin(kTour * hauteur * t) +
         0.45 * Enveloppe(t, 0.002, chute * 0.5) * std::sin(kTour * hauteur * 2.76 * t) +
         0.2 * Enveloppe(t, 0.002, chute * 0.25) * std::sin(kTour * hauteur * 5.40 * t);
}

// 0: a siren that sweeps up and down, for shops: carries far and leaves no doubt.
Onde ComposeSirene() {
  double phase = 0;
  double dernier = 0;
  return Compose(4.0, [=](double t) mutable {
    const double hauteur = 760 + 330 * std::sin(kTour * 1.25 * t - std::numbers::pi / 2);
    phase += kTour * hauteur * (t - dernier);
    dernier = t;
    const double v = std::sin(phase) + 0.34 * std::sin(3 * phase) + 0.16 * std::sin(5 * phase);
    return 0.62 * v * std::min({t / 0.02, (4.0 - t) / 0.05, 1.0});
  });
}

// 1: two quick beeps, four times, as of a keypad alarm.
Onde ComposeBips() {
  return Compose(3.2, [](double t) {
    const double dans = std::fmod(t, 0.8);
    const double note = dans < 0.16 ? dans : dans - 0.22;
    if (note < 0 || note > 0.16) return 0.0;
    const double bord = std::min({note / 0.006, (0.16 - note) / 0.01, 1.0});
    const double v = std::sin(kTour * 1960 * t) + 0.3 * std::sin(kTour * 3920 * t);
    return 0.6 * std::max(bord, 0.0) * v;
  });
}

// 2: a door chime of three bells: for a house, heard and not feared.
Onde ComposeCarillon() {
  return Compose(3.6, [](double t) {
    return 0.4 * (Cloche(t, 880.0, 0.7) + Cloche(t - 0.42, 698.46, 0.8) + Cloche(t - 0.84, 523.25, 1.1)) *
           std::min((3.6 - t) / 0.1, 1.0);
  });
}

// 4: the tick of the interface: twelve milliseconds of soft wood, heard a hundred times without tiring.
Onde ComposeTic() {
  return Compose(0.03, [](double t) {
    return 0.22 * Enveloppe(t, 0.0008, 0.0045) * (std::sin(kTour * 1450 * t) + 0.5 * std::sin(kTour * 2300 * t));
  });
}

void Ajoute(std::string& octets, std::uint32_t valeur, int taille) {
  for (int i = 0; i < taille; ++i) octets.push_back(static_cast<char>((valeur >> (8 * i)) & 0xFFU));
}

bool EcritOnde(const std::string& fichier, const Onde& onde) {
  const auto donnees = static_cast<std::uint32_t>(onde.size() * 2);
  std::string octets = "RIFF";
  Ajoute(octets, 36 + donnees, 4);
  octets += "WAVEfmt ";
  Ajoute(octets, 16, 4);
  Ajoute(octets, 1, 2);      // PCM
  Ajoute(octets, 1, 2);      // one channel
  Ajoute(octets, 44100, 4);  // samples a second
  Ajoute(octets, 88200, 4);  // bytes a second
  Ajoute(octets, 2, 2);      // bytes a sample
  Ajoute(octets, 16, 2);     // bits a sample
  octets += "data";
  Ajoute(octets, donnees, 4);
  for (const double v : onde) {
    const auto echantillon = static_cast<std::int16_t>(std::lround(std::clamp(v, -1.0, 1.0) * 32000));
    Ajoute(octets, static_cast<std::uint16_t>(echantillon), 2);
  }
  std::FILE* f = std::fopen(fichier.c_str(), "wb");
  if (f == nullptr) return false;
  const bool complet = std::fwrite(octets.data(), 1, octets.size(), f) == octets.size();
  return std::fclose(f) == 0 && complet;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_sounds FOLDER\n");
    return 2;
  }
  const std::string dossier = std::string(argv[1]) + "/";
  const bool fait = EcritOnde(dossier + "0.wav", ComposeSirene()) && EcritOnde(dossier + "1.wav", ComposeBips()) &&
                    EcritOnde(dossier + "2.wav", ComposeCarillon()) && EcritOnde(dossier + "4.wav", ComposeTic());
  if (!fait) std::fprintf(stderr, "cannot write into %s\n", argv[1]);
  return fait ? 0 : 1;
}
