// SPDX-License-Identifier: GPL-3.0-or-later
// Finds and prepares the folders of the program.
#pragma once

#include "base/program_folders.h"

namespace vaktor {

/// Executables: the folder of the running executable. Donnees: `dossierPrive` if one is given (made absolute; the
/// start argument "/dossier:" names it), else the executable's folder where this user can write there, else "vaktor"
/// in the user's data folder of the XDG rules (XDG_DATA_HOME, by default ~/.local/share). A program that was installed
/// (its folder ends in "libexec/vaktor") never writes beside itself, and its Images is the user's folder of pictures
/// (user-dirs.dirs of xdg-user-dirs, by default ~/Pictures). Makes nothing. Needs a QCoreApplication.
DossiersProgramme TrouveDossiers(const QString& dossierPrive = QString());

/// The same choice for a given folder of the executable.
DossiersProgramme ChoisitDossiers(const QString& dossierExecutable, const QString& dossierPrive);

/// The folder for files of settings, without a separator at its end: `dossierPrive` if one is given, else "vaktor" in
/// the user's configuration folder of the XDG rules (XDG_CONFIG_HOME, by default ~/.config). Makes nothing.
QString TrouveDossierReglages(const QString& dossierPrive = QString());

/// The folder in which the companions keep log, status file and outbox, without a separator at its end: "etat" below
/// `dossierPrive` if one is given, else "vaktor" in the user's state folder of the XDG rules (XDG_STATE_HOME, by
/// default
/// ~/.local/state). Makes nothing.
QString TrouveDossierEtat(const QString& dossierPrive = QString());

/// Makes `Donnees`, "Temp" and "Temp/FTP" below it where they are missing, so that the first photo and the first live
/// image find their place. The empty text when all are there, else the folder that could not be made.
/// (The default photo folder itself is made by the load of the settings, and only when it is needed. Images is made
/// here: a user who never had a picture has no folder of pictures.)
QString PrepareDossiers(const DossiersProgramme& dossiers);

}  // namespace vaktor
