// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/site_memory.h"

#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>

#include "platform/store/bounded_file.h"

namespace vaktor {

namespace {

constexpr qint64 kTailleMax = 256LL * 1024;
const QLatin1String kTls("tls");
const QLatin1String kCle("key");

QString NommeServeur(const AccesFtp& acces) {
  return acces.Hote.toLower() + QLatin1Char(':') + QString::number(acces.Port);
}

}  // namespace

MemoireSites::MemoireSites(QString fichier) : Fichier_(std::move(fichier)) {
  QByteArray octets;
  if (LitFichierBorne(Fichier_, kTailleMax, octets) != 0) return;
  const QJsonObject objet = QJsonDocument::fromJson(octets).object();
  Serveurs_ = objet[QLatin1String("servers")].toObject();
  Sites_ = objet[QLatin1String("sites")].toObject();
}

QString MemoireSites::NommeSite(const AccesFtp& acces) {
  return NommeServeur(acces) + QLatin1Char('/') + acces.Utilisateur + QLatin1Char('/') + acces.Dossier;
}

void MemoireSites::Applique(AccesFtp& acces) const {
  const QJsonObject serveur = Serveurs_[NommeServeur(acces)].toObject();
  acces.TlsExige = serveur[kTls].toBool();
  acces.CleHote = serveur[kCle].toString();
}

bool MemoireSites::Note(const AccesFtp& acces, const ResultatFtp& resultat) {
  QJsonObject serveur = Serveurs_[NommeServeur(acces)].toObject();
  const QJsonObject avant = serveur;
  if (resultat.Chiffre) serveur[kTls] = true;
  const bool neuve = !resultat.CleHote.isEmpty() && !serveur.contains(kCle);
  if (neuve) serveur[kCle] = resultat.CleHote;
  if (serveur == avant) return false;
  Serveurs_[NommeServeur(acces)] = serveur;
  Ecrit();
  return neuve;
}

bool MemoireSites::EstEtabli(const AccesFtp& acces) const { return Sites_[NommeSite(acces)].toBool(); }

void MemoireSites::NoteEtabli(const AccesFtp& acces) {
  if (EstEtabli(acces)) return;
  Sites_[NommeSite(acces)] = true;
  Ecrit();
}

void MemoireSites::Ecrit() const {
  QSaveFile fichier(Fichier_);
  if (!fichier.open(QIODevice::WriteOnly)) return;
  fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  fichier.write(
      QJsonDocument(QJsonObject{{QStringLiteral("servers"), Serveurs_}, {QStringLiteral("sites"), Sites_}}).toJson());
  fichier.commit();
}

}  // namespace vaktor
