// SPDX-License-Identifier: GPL-3.0-or-later
// Where a companion finds and leaves things: the same places as the main program that started it.
#pragma once

#include <QString>

#include "base/program_folders.h"

namespace vaktor {

struct DossiersModule {
  DossiersProgramme Programme;  ///< executables with "snd"; "Temp", "Temp/FTP" and "intrus" below Donnees
  QString FichierReglages;      ///< the settings store
  QString Etat;                 ///< logs, status files, the outbox: "vaktor" in the user's state folder
                                ///< (XDG_STATE_HOME, by default ~/.local/state), or "etat" below a private folder

  /// What the watch has to say of itself, beside the store; the main program makes it.
  QString CheminVeille() const;
  QString CheminTemp() const { return Programme.Donnees + QStringLiteral("/Temp"); }
  QString CheminTempFtp() const { return Programme.Donnees + QStringLiteral("/Temp/FTP"); }
  QString CheminSons() const { return Programme.Executables + QStringLiteral("/snd"); }
};

/// Needs a QCoreApplication. Looks at the environment: VAKTOR_DOSSIER is the private folder of the main program, where
/// it has one. Makes the folder Etat, for the user alone; when that fails it stays missing and what is written there is
/// lost, which a companion must survive.
DossiersModule TrouveDossiersModule();

}  // namespace vaktor
