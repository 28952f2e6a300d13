#include "platform/sound/sound_output.h"

#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>

namespace vaktor {

namespace {

// What names a server or a device to the libraries, wherever it may be.
constexpr std::array kVariables = {"PULSE_SERVER",     "PULSE_RUNTIME_PATH",   "PULSE_CLIENTCONFIG",
                                   "PIPEWIRE_REMOTE",  "PIPEWIRE_RUNTIME_DIR", "JACK_DEFAULT_SERVER",
                                   "ALSA_CONFIG_PATH", "AUDIODEVICE"};

// Relative to the folder above; the last part may be a pattern. Sockets are system files to QDir.
constexpr std::array kDuSysteme = {"dev/snd/pcm*p",    "dev/dsp*",        "etc/asound.conf",
                                   "run/pulse/native", "run/sndio/sock*", "tmp/sndio/sock*"};
constexpr std::array kDeLaSession = {"pulse/native", "pipewire-*"};
// A cookie is written for a server that was there once; without a runtime folder of the session the sockets lie behind
// a link in the same place.
constexpr std::array kDeLaPersonne = {".asoundrc", ".config/alsa/asoundrc", ".config/pulse/client.conf",
                                      ".config/pulse/cookie"};

bool Existe(const QString& dossier, const char* chemin) {
  const QFileInfo lieu(dossier + QLatin1Char('/') + QLatin1String(chemin));
  return !QDir(lieu.path()).entryList({lieu.fileName()}, QDir::AllEntries | QDir::System | QDir::Hidden).isEmpty();
}

template <typename Liste>
bool ExisteUnDe(const QString& dossier, const Liste& chemins) {
  if (dossier.isEmpty()) return false;
  return std::any_of(chemins.begin(), chemins.end(), [&](const char* chemin) { return Existe(dossier, chemin); });
}

bool ExisteServeurLie(const QString& maison) {
  if (maison.isEmpty()) return false;
  const QDir dossier(maison + QStringLiteral("/.config/pulse"));
  const QStringList liens = dossier.entryList({QStringLiteral("*-runtime")}, QDir::Dirs);
  return std::any_of(liens.begin(), liens.end(), [&](const QString& lien) {
    return QFileInfo::exists(dossier.filePath(lien) + QStringLiteral("/native"));
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
         ExisteUnDe(lieux.DossierPersonnel, kDeLaPersonne) || ExisteServeurLie(lieux.DossierPersonnel);
}

}  // namespace vaktor
