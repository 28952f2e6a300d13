// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/ftp_commands.h"

namespace vaktor {

namespace {

bool EstSftp(const TravailFtp& travail) { return travail.Acces.Protocole == ProtocoleFtp::kSftp; }

// The whole path: over SSH there is no folder that one is in. Without "/" in front it begins where one arrives.
QString CheminEntre(const TravailFtp& travail, const QString& nom) {
  QString dossier = travail.Acces.Dossier.trimmed().replace(u'\\', u'/');
  if (!dossier.isEmpty() && !dossier.endsWith(u'/')) dossier += u'/';
  QString chemin = dossier + nom;
  chemin.replace(u'"', QLatin1String("\\\""));
  return u'"' + chemin + u'"';
}

}  // namespace

QString CommandeEfface(const TravailFtp& travail, const QString& nom) {
  return EstSftp(travail) ? QStringLiteral("rm ") + CheminEntre(travail, nom) : QStringLiteral("DELE ") + nom;
}

QStringList CommandesRenomme(const TravailFtp& travail, const QString& provisoire) {
  if (EstSftp(travail))
    return {QStringLiteral("rename ") + CheminEntre(travail, provisoire) + u' ' + CheminEntre(travail, travail.Nom)};
  return {QStringLiteral("RNFR ") + provisoire, QStringLiteral("RNTO ") + travail.Nom};
}

QStringList CommandesTaille(const TravailFtp& travail) {
  if (EstSftp(travail)) return {};
  return {QStringLiteral("SIZE ") + travail.Nom};
}

QString CommandeSigne(const TravailFtp& travail) {
  return EstSftp(travail) ? QStringLiteral("pwd") : QStringLiteral("NOOP");
}

}  // namespace vaktor
