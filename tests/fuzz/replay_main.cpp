// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a harness without libFuzzer: every file of the corpus, then mutations of them from a fixed seed. It needs no
// special compiler, so it belongs to every run of the tests; under the sanitizers it finds what they find.
//   NAME CORPUS_FOLDER NUMBER_OF_MUTATIONS
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille);

namespace {

using Octets = std::vector<std::uint8_t>;

std::vector<Octets> LitCorpus(const std::string& dossier) {
  std::vector<std::filesystem::path> noms;
  for (const auto& entree : std::filesystem::directory_iterator(dossier)) noms.push_back(entree.path());
  std::ranges::sort(noms);
  std::vector<Octets> corpus;
  for (const auto& nom : noms) {
    std::ifstream fichier(nom, std::ios::binary);
    corpus.emplace_back(std::istreambuf_iterator<char>(fichier), std::istreambuf_iterator<char>());
  }
  return corpus;
}

Octets Mute(Octets octets, const Octets& autre, std::mt19937& hasard) {
  const auto tire = [&](std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n)(hasard); };
  for (std::size_t i = tire(8); !octets.empty() && i > 0; --i) {
    octets[tire(octets.size() - 1)] = static_cast<std::uint8_t>(tire(255));
  }
  const std::size_t coupe = tire(octets.size());
  const std::size_t reprise = tire(autre.size());
  switch (tire(3)) {
    case 0:
      octets.resize(coupe);
      break;
    case 1:
      octets.insert(octets.begin() + static_cast<std::ptrdiff_t>(coupe),
                    autre.begin() + static_cast<std::ptrdiff_t>(reprise), autre.end());
      break;
    case 2:
      octets.erase(octets.begin(), octets.begin() + static_cast<std::ptrdiff_t>(coupe));
      break;
    default:
      break;
  }
  return octets;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return EXIT_FAILURE;
  const std::vector<Octets> corpus = LitCorpus(argv[1]);
  if (corpus.empty()) return EXIT_FAILURE;
  for (const Octets& octets : corpus) LLVMFuzzerTestOneInput(octets.data(), octets.size());
  std::mt19937 hasard(1);  // NOLINT(cert-msc51-cpp): the same run each time
  const int mutations = std::atoi(argv[2]);
  for (int i = 0; i < mutations; ++i) {
    const Octets muee = Mute(corpus[hasard() % corpus.size()], corpus[hasard() % corpus.size()], hasard);
    LLVMFuzzerTestOneInput(muee.data(), muee.size());
  }
  std::cout << corpus.size() << " files and " << mutations << " mutations" << std::endl;
  return EXIT_SUCCESS;
}
