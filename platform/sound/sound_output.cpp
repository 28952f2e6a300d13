// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/sound_output.h"

#include <glob.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <algorithm>
#include <array>

namespace vaktor {

namespace {

// What names a server or a device to the libraries, wherever it may be.
constexpr std::array kVariables = {"PULSE_SERVER",     "PULSE_RUNTIME_PATH",   "PULSE_CLIENTCONFIG",
                                   "PIPEWIRE_REMOTE",  "PIPEWIRE_RUNTIME_DIR", "JACK_DEFAULT_SERVER",
                                   "ALSA_CONFIG_PATH", "AUDIODEVICE"};

// Patterns, within the folder told before each.
constexpr std::array kDuSysteme = {"dev/snd/pcm*p",    "dev/dsp*",        "etc/asound.conf",
                                   "run/pulse/native", "run/sndio/sock*", "tmp/sndio/sock*"};
constexpr std::array kDeLaSession = {"pulse/native", "pipewire-*"};
// A cookie is written for a server that was there once; without a runtime folder of the session the sockets lie behind
// a link in the same place.
constexpr std::array kDeLaPersonne = {".asoundrc", ".config/alsa/asoundrc", ".config/pulse/client.conf",
                                      ".config/pulse/cookie", ".config/pulse/*-runtime/native"};

// The system's own matching: Qt's brings the whole machinery of regular expressions along.
template <typename Liste>
bool ExisteUnDe(const QString& dossier, const Liste& motifs) {
  if (dossier.isEmpty()) return false;
  return std::any_of(motifs.begin(), motifs.end(), [&](const char* motif) {
    glob_t trouves = {};
    const int reponse = glob(QFile::encodeName(dossier + QLatin1Char('/') + QLatin1String(motif)).constData(),
                             GLOB_NOSORT, nullptr, &trouves);
    globfree(&trouves);
    return reponse == 0;
  });
}

}  // namespace

LieuxSon TrouveLieuxSon() {
  const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return {.Racine = QStringLiteral("/"),
          .DossierPersonnel = QDir::homePath(),
          .DossierExecution = session.isEmpty() ? QStringLiteral("/run/user/%1").arg(getuid()) : session,
          .EstDefinie = [](const char* nom) { return qEnvironmentVariableIsSet(nom); }};
}

bool PeutSortirSon(const LieuxSon& lieux) {
  if (std::any_of(kVariables.begin(), kVariables.end(), lieux.EstDefinie)) return true;
  return ExisteUnDe(lieux.Racine, kDuSysteme) || ExisteUnDe(lieux.DossierExecution, kDeLaSession) ||
         ExisteUnDe(lieux.DossierPersonnel, kDeLaPersonne);
}

}  // namespace vaktor
