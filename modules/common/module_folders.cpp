#include "modules/common/module_folders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "companions/contract/command_words.h"
#include "platform/base/program_folders.h"

namespace vaktor {

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
