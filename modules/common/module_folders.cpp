// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/common/module_folders.h"

#include <QFile>
#include <QFileInfo>

#include "companions/contract/command_words.h"
#include "platform/base/program_folders.h"
#include "platform/store/private_file.h"

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
  PrepareDossierPrive(dossiers.Etat);
  QFile::setPermissions(dossiers.Etat, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  return dossiers;
}

}  // namespace vaktor
