#include "modules/common/module_folders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "companions/contract/command_words.h"
#include "platform/base/program_folders.h"

namespace vaktor {

namespace {

QString TrouveDossierEtat(const QString& dossierPrive) {
  if (!dossierPrive.isEmpty()) return QDir(dossierPrive).absolutePath() + QStringLiteral("/etat");
  const QString base = qEnvironmentVariable("XDG_STATE_HOME");
  // The XDG rules: a relative path is to be ignored.
  if (QDir::isAbsolutePath(base)) return base + QStringLiteral("/vaktor");
  return QDir::homePath() + QStringLiteral("/.local/state/vaktor");
}

}  // namespace

QString DossiersModule::CheminVeille() const {
  return QFileInfo(FichierReglages).absolutePath() + QLatin1Char('/') + kDossierVeille;
}

DossiersModule TrouveDossiersModule() {
  const QString prive = qEnvironmentVariable(kVariableDossier.data());
  DossiersModule dossiers;
  dossiers.Programme = TrouveDossiers(prive);
  dossiers.FichierReglages = TrouveDossierReglages(prive) + QLatin1Char('/') + kFichierReglages;
  dossiers.Etat = TrouveDossierEtat(prive);
  if (QDir().mkpath(dossiers.Etat))
    QFile::setPermissions(dossiers.Etat, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  return dossiers;
}

}  // namespace vaktor
