// SPDX-License-Identifier: GPL-3.0-or-later
// What tells that a machine can play sounds.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/sound/sound_output.h"

namespace vaktor {
namespace {

/// A machine without any sound.
class Machine {
 public:
  LieuxSon Lieux() const {
    return {.Racine = Lieu("root/"),
            .DossierPersonnel = Lieu("home"),
            .DossierExecution = Lieu("session"),
            .EstDefinie = [this](const char* nom) { return Variable_ == QLatin1String(nom); }};
  }
  void Definis(const char* variable) { Variable_ = QLatin1String(variable); }
  void Pose(const char* chemin) {
    const QFileInfo fichier(Lieu(chemin));
    QDir().mkpath(fichier.path());
    QFile(fichier.filePath()).open(QIODevice::WriteOnly);
  }

 private:
  QString Lieu(const char* chemin) const { return Dossier_.filePath(QLatin1String(chemin)); }

  QTemporaryDir Dossier_;
  QString Variable_;
};

TEST(SoundOutput, MachineWithoutATraceOfSoundPlaysNone) {
  Machine machine;
  EXPECT_FALSE(PeutSortirSon(machine.Lieux()));
  // A microphone, and what a library leaves behind that found no server.
  for (const char* chemin : {"root/dev/snd/pcmC0D0c", "root/dev/snd/controlC0", "root/dev/snd/timer",
                             "home/.config/pulse/1f-runtime/pid", "session/bus"}) {
    machine.Pose(chemin);
  }
  EXPECT_FALSE(PeutSortirSon(machine.Lieux()));
}

TEST(SoundOutput, DeviceServerOrSettingIsEnough) {
  for (const char* chemin :
       {"root/dev/snd/pcmC1D3p", "root/dev/dsp", "root/dev/dsp1", "root/etc/asound.conf", "root/run/pulse/native",
        "root/run/sndio/sock0", "root/tmp/sndio/sock0", "session/pulse/native", "session/pipewire-0", "home/.asoundrc",
        "home/.config/alsa/asoundrc", "home/.config/pulse/client.conf", "home/.config/pulse/cookie",
        "home/.config/pulse/1f-runtime/native"}) {
    Machine machine;
    machine.Pose(chemin);
    EXPECT_TRUE(PeutSortirSon(machine.Lieux())) << chemin;
  }
}

TEST(SoundOutput, VariableThatNamesAServerIsEnough) {
  for (const char* nom : {"PULSE_SERVER", "PULSE_RUNTIME_PATH", "PULSE_CLIENTCONFIG", "PIPEWIRE_REMOTE",
                          "PIPEWIRE_RUNTIME_DIR", "JACK_DEFAULT_SERVER", "ALSA_CONFIG_PATH", "AUDIODEVICE"}) {
    Machine machine;
    machine.Definis(nom);
    EXPECT_TRUE(PeutSortirSon(machine.Lieux())) << nom;
  }
}

TEST(SoundOutput, UserWithoutAHomeOrASessionIsNoError) {
  LieuxSon lieux = Machine().Lieux();
  lieux.DossierPersonnel.clear();
  lieux.DossierExecution.clear();
  lieux.EstDefinie = [](const char*) { return false; };
  EXPECT_FALSE(PeutSortirSon(lieux));
}

}  // namespace
}  // namespace vaktor
