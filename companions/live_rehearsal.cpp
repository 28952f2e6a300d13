// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/live_rehearsal.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace vaktor {

QByteArray ComposeDemandeEssaiFtp(const ChampsEssaiFtp& champs, qint32 langue) {
  const QJsonObject demande{
      {QStringLiteral("ftp"), champs.Serveur},     {QStringLiteral("user"), champs.Utilisateur},
      {QStringLiteral("pass"), champs.MotDePasse}, {QStringLiteral("racine"), champs.Dossier},
      {QStringLiteral("langue"), langue},
  };
  return QJsonDocument(demande).toJson(QJsonDocument::Compact);
}

}  // namespace vaktor
