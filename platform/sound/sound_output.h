// SPDX-License-Identifier: GPL-3.0-or-later
// Whether this machine could play a sound at all.
#pragma once

#include <QString>
#include <functional>

namespace vaktor {

/// Where sound devices and sound servers leave their traces.
struct LieuxSon {
  QString Racine;                                   ///< of the file system, ends with a slash
  QString DossierPersonnel;                         ///< $HOME
  QString DossierExecution;                         ///< $XDG_RUNTIME_DIR, or the place that it has by custom
  std::function<bool(const char* nom)> EstDefinie;  ///< whether an environment variable is set
};

/// Those of this machine and this user. Any thread.
LieuxSon TrouveLieuxSon();

/// False when there is neither a device (ALSA, OSS) nor a server (PulseAudio, PipeWire, JACK, sndio) nor a setting of
/// the user's that tells of one elsewhere: whoever asked each of their libraries would load them all to hear the same.
/// In doubt true. A few looks into folders, so that it can be asked before each sound: a device may be plugged in any
/// time.
bool PeutSortirSon(const LieuxSon& lieux);

}  // namespace vaktor
