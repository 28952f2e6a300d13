// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/program_folders.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace vaktor {
namespace {

QString DossierXdg(QStandardPaths::StandardLocation lieu) {
  // The generic folders, because the others add the name of the running executable, and the companions share these.
  return QStandardPaths::writableLocation(lieu) + QStringLiteral("/vaktor");
}

QString SansSeparateurFinal(const QString& chemin) { return QDir(chemin).absolutePath(); }

/// Asks the system rather than looking at the mode: a read-only file system counts too.
bool PeutEcrire(const QString& dossier) { return ::access(QFile::encodeName(dossier).constData(), W_OK | X_OK) == 0; }

/// Where `cmake --install` puts the programs, whatever the prefix (GNU coding standards, "libexecdir").
bool EstInstalle(const QString& dossier) { return dossier.endsWith(QStringLiteral("/libexec/vaktor")); }

}  // namespace

DossiersProgramme ChoisitDossiers(const QString& dossierExecutable, const QString& dossierPrive) {
  DossiersProgramme dossiers{SansSeparateurFinal(dossierExecutable), {}};
  if (!dossierPrive.isEmpty()) {
    dossiers.Donnees = SansSeparateurFinal(dossierPrive);
  } else if (EstInstalle(dossiers.Executables)) {
    // Also when it could be written: the administrator's own photos do not belong into the system's folders.
    dossiers.Donnees = DossierXdg(QStandardPaths::GenericDataLocation);
    dossiers.Images = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  } else if (PeutEcrire(dossiers.Executables)) {
    dossiers.Donnees = dossiers.Executables;
  } else {
    dossiers.Donnees = DossierXdg(QStandardPaths::GenericDataLocation);
  }
  return dossiers;
}

DossiersProgramme TrouveDossiers(const QString& dossierPrive) {
  return ChoisitDossiers(QCoreApplication::applicationDirPath(), dossierPrive);
}

QString TrouveDossierReglages(const QString& dossierPrive) {
  if (!dossierPrive.isEmpty()) return SansSeparateurFinal(dossierPrive);
  return DossierXdg(QStandardPaths::GenericConfigLocation);
}

QString TrouveDossierEtat(const QString& dossierPrive) {
  if (!dossierPrive.isEmpty()) return SansSeparateurFinal(dossierPrive) + QStringLiteral("/etat");
  const QString base = qEnvironmentVariable("XDG_STATE_HOME");
  // The XDG rules: a relative path is to be ignored.
  if (QDir::isAbsolutePath(base)) return base + QStringLiteral("/vaktor");
  return QDir::homePath() + QStringLiteral("/.local/state/vaktor");
}

QString PrepareDossiers(const DossiersProgramme& dossiers) {
  const QString temp = dossiers.Donnees + QStringLiteral("/Temp");
  for (const QString& dossier : {dossiers.Donnees, temp, temp + QStringLiteral("/FTP"), dossiers.Images}) {
    if (dossier.isEmpty()) continue;
    if (!QDir().mkpath(dossier)) return dossier;  // true for a folder that is there already
  }
  return {};
}

}  // namespace vaktor
