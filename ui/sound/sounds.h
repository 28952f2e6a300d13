// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds of the interface: numbered wave files beside the program, and the gate that ticks once for each control.
#pragma once

#include "base/program_folders.h"
#include "engine/ports/interface_sounds.h"
#include "settings/ports/files.h"
#include "ui/sound/ports/sound_player.h"

namespace vaktor {

/// Owner: app/. User-interface thread. A missing file is silent, also when the whole folder is missing.
class Sons : public SonsInterface {
 public:
  /// All of it outlives the object.
  Sons(const DossiersProgramme& dossiers, const Fichiers& disque, LecteurSon& lecteur)
      : Dossiers_(dossiers), Disque_(disque), Lecteur_(lecteur) {}

  void JoueSon(qint32 n) override;
  void SurvolSon(qint32 id) override;
  /// Plays a file of the user's, silent when it is missing.
  void JoueFichier(const QString& chemin);

 private:
  const DossiersProgramme& Dossiers_;
  const Fichiers& Disque_;
  LecteurSon& Lecteur_;
  qint32 DernierSurvol_ = 0;
};

}  // namespace vaktor
